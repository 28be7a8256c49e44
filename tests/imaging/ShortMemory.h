#pragma once

#include "foundation/LibraryModule.h"
#include "support/ImportSpy.h"

#include <cstddef>

// One allocation of the library fails: its new and its mutexes call malloc, the system's own code does not.
class ShortMemory : public FailNthCall<void*(std::size_t)>
{
public:
    explicit ShortMemory(int failingCall)
        : FailNthCall(VxDpiModule(), nullptr, "malloc", failingCall, nullptr)
    {
    }
};
