#pragma once

#include <windows.h>

#include <objbase.h>

#include <stdexcept>

// Initialises COM on the program's main thread, once and for good: the library keeps objects of the imaging
// component for the life of the process, so COM has to stay.
inline void NeedCom()
{
    static const HRESULT s_result = ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    if (FAILED(s_result))
        throw std::runtime_error("COM does not start");
}
