#pragma once

#include "foundation/LibraryModule.h"
#include "support/ImportSpy.h"

#include <cstddef>

// Tests of what happens without memory begin with
//
//     if (!CanMemoryFail())
//         GTEST_SKIP() << kMemoryCannotFail;

// Whether the library's allocations can be made to fail.
bool CanMemoryFail();

inline constexpr char kMemoryCannotFail[] =
    "new and delete of the library are the framework's, which are imported by number, and a mutex needs none";

// One allocation of the library fails: its new and its mutexes call malloc, the system's own code does not.
class ShortMemory : public FailNthCall<void*(std::size_t)>
{
public:
    explicit ShortMemory(int failingCall = 1)
        : FailNthCall(VxDpiModule(), nullptr, "malloc", failingCall, nullptr)
    {
    }
};
