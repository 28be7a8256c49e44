#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

// An input of the fuzzer: the target size in four bytes, little-endian, then the directory as it would stand
// in a file.
struct IconGroupInput
{
    std::int32_t target = 0;
    std::vector<std::uint8_t> directory;
};

// Bytes that are missing count as 0.
IconGroupInput ReadIconGroupInput(const std::uint8_t* bytes, std::size_t count);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
