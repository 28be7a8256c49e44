#pragma once

#include "foundation/LibraryModule.h"
#include "support/ImportSpy.h"

// Makes every call of one of the kernel's functions fail that the library uses to read a resource.
template<typename Signature>
class FailKernelCall : public FailNthCall<Signature>
{
public:
    template<typename Failure>
    FailKernelCall(const char* functionName, Failure failure)
        : FailNthCall<Signature>(VxDpiModule(), "kernel32.dll", functionName,
                                 FailNthCall<Signature>::kEveryCall, failure)
    {
    }
};

using FailLockResource = FailKernelCall<decltype(::LockResource)>;
using FailGlobalAlloc = FailKernelCall<decltype(::GlobalAlloc)>;
using FailGlobalLock = FailKernelCall<decltype(::GlobalLock)>;

// No stream can be made of the resource's bytes.
class FailStream : public FailNthCall<decltype(::CreateStreamOnHGlobal)>
{
public:
    FailStream() : FailNthCall(VxDpiModule(), "ole32.dll", "CreateStreamOnHGlobal", kEveryCall, E_OUTOFMEMORY)
    {
    }
};
