#pragma once

#include "imaging/PlatformSpy.h"

#include <commctrl.h>

// Calls with which bitmaps are loaded, copied, stretched and freed, written down in their order. A spy that
// makes one of them fail has to start before, the failing call is then written down as well.
//
// Objects are named when they are made: the device contexts "screen", "client" (of a window), "dc1" and "dc2"
// (memory, in their order), the bitmap that a memory context has at first "stock", the bitmaps "loaded",
// "copy" and "scaled".
class BitmapCalls
{
public:
    explicit BitmapCalls(CallLog& log);

private:
    int m_memoryDcs = 0;
    RecordPlatformCalls<decltype(::LoadBitmapW)> m_load;
    RecordPlatformCalls<decltype(::CreateMappedBitmap)> m_loadMapped;
    RecordPlatformCalls<decltype(::CopyImage)> m_copy;
    PlatformSpy<decltype(::GetObjectW)> m_query;
    PlatformSpy<decltype(::GetDC)> m_getDc;
    RecordPlatformCalls<decltype(::ReleaseDC)> m_releaseDc;
    RecordPlatformCalls<decltype(::CreateCompatibleDC)> m_createDc;
    RecordPlatformCalls<decltype(::DeleteDC)> m_deleteDc;
    RecordPlatformCalls<decltype(::CreateCompatibleBitmap)> m_createBitmap;
    RecordPlatformCalls<decltype(::SelectObject)> m_select;
    RecordPlatformCalls<decltype(::SetStretchBltMode)> m_mode;
    RecordPlatformCalls<decltype(::SetBrushOrgEx)> m_brushOrigin;
    RecordPlatformCalls<decltype(::StretchBlt)> m_stretch;
    RecordPlatformCalls<decltype(::DeleteObject)> m_delete;
};

// One call fails, counted from 1.
class FailCopyImage : public FailPlatformCall<decltype(::CopyImage)>
{
public:
    explicit FailCopyImage(int failingCall = 1)
        : FailPlatformCall("user32.dll", "CopyImage", failingCall, nullptr)
    {
    }
};

class FailGetObject : public FailPlatformCall<decltype(::GetObjectW)>
{
public:
    explicit FailGetObject(int failingCall = 1) : FailPlatformCall("gdi32.dll", "GetObjectW", failingCall, 0)
    {
    }
};

class FailGetDc : public FailPlatformCall<decltype(::GetDC)>
{
public:
    explicit FailGetDc(int failingCall = 1) : FailPlatformCall("user32.dll", "GetDC", failingCall, nullptr) {}
};

class FailCreateDc : public FailPlatformCall<decltype(::CreateCompatibleDC)>
{
public:
    explicit FailCreateDc(int failingCall = 1)
        : FailPlatformCall("gdi32.dll", "CreateCompatibleDC", failingCall, nullptr)
    {
    }
};

class FailCreateBitmap : public FailPlatformCall<decltype(::CreateCompatibleBitmap)>
{
public:
    explicit FailCreateBitmap(int failingCall = 1)
        : FailPlatformCall("gdi32.dll", "CreateCompatibleBitmap", failingCall, nullptr)
    {
    }
};

class FailStretch : public FailPlatformCall<decltype(::StretchBlt)>
{
public:
    explicit FailStretch(int failingCall = 1)
        : FailPlatformCall("gdi32.dll", "StretchBlt", failingCall, FALSE)
    {
    }
};

// The lines from the first that starts with one text to the last that starts with the other.
CallLog::LineList LinesBetween(const CallLog& log, const std::string& first, const std::string& last);
