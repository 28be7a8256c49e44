#include "IconGroupFuzz.h"

#include "IconGroupModel.h"

#include <cstdlib>
#include <cstring>

IconGroupInput ReadIconGroupInput(const std::uint8_t* bytes, std::size_t count)
{
    IconGroupInput input;
    const std::size_t head = (std::min)(count, sizeof(input.target));
    if (head == 0)
        return input;
    std::memcpy(&input.target, bytes, head);
    input.directory.assign(bytes + head, bytes + count);
    return input;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const IconGroupInput input = ReadIconGroupInput(data, size);
    if (!IconGroupModel::AgreesWithLibrary(input.directory, input.target))
        std::abort();
    return 0;
}
