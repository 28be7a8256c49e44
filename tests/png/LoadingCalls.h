#pragma once

#include <vxdpi/Png.h>

#include "foundation/LibraryModule.h"
#include "support/ArgbImage.h"
#include "support/CallLog.h"
#include "support/ImportSpy.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <set>
#include <vector>

// Calls with which the library reads, measures and converts pictures, written down in their order. A spy that
// makes one of them fail has to start before the recorder, which then writes the failing call down as well.

// Records a function and gives what it answers a name.
template<typename Signature>
class RecordAndName;

template<typename Result, typename... Args>
class RecordAndName<Result(Args...)> : public ImportSpy<Result(Args...)>
{
public:
    RecordAndName(CallLog& log, const char* dllName, const char* functionName, const char* resultName)
        : ImportSpy<Result(Args...)>(VxDpiModule(), dllName, functionName,
                                     [this, &log, functionName, resultName](Args... args) -> Result
                                     {
                                         log.WriteCall(functionName, args...);
                                         const Result result = this->Original()(args...);
                                         log.Name(result, resultName);
                                         return result;
                                     })
    {
    }
};

// Reading a resource and making a stream of it. The objects on the way are named "found", "resource" (loading
// and locking may answer the same), "block" and "copy".
class ResourceCalls
{
public:
    explicit ResourceCalls(CallLog& log);

private:
    RecordAndName<decltype(::FindResourceW)> m_find;
    RecordCalls<decltype(::SizeofResource)> m_size;
    RecordAndName<decltype(::LoadResource)> m_load;
    RecordCalls<decltype(::LockResource)> m_lock;
    RecordAndName<decltype(::GlobalAlloc)> m_allocate;
    RecordAndName<decltype(::GlobalLock)> m_lockBlock;
    RecordCalls<decltype(::GlobalUnlock)> m_unlockBlock;
    RecordCalls<decltype(::GlobalFree)> m_freeBlock;
    RecordCalls<decltype(::FreeResource)> m_free;
    ImportSpy<decltype(::CreateStreamOnHGlobal)> m_stream;
};

// Questions for sizes and formats.
class PictureQuestions
{
public:
    explicit PictureQuestions(CallLog& log);

private:
    ImportSpy<decltype(Gdiplus::DllExports::GdipGetImageWidth)> m_width;
    ImportSpy<decltype(Gdiplus::DllExports::GdipGetImageHeight)> m_height;
    ImportSpy<decltype(Gdiplus::DllExports::GdipGetImagePixelFormat)> m_format;
};

// Access to pixels, with the record of a lock named "lock", and the way to a GDI bitmap, with the handle as
// it is before the call.
class PixelCalls
{
public:
    explicit PixelCalls(CallLog& log);

private:
    ImportSpy<decltype(Gdiplus::DllExports::GdipBitmapLockBits)> m_lock;
    RecordCalls<decltype(Gdiplus::DllExports::GdipBitmapUnlockBits)> m_unlock;
    ImportSpy<decltype(Gdiplus::DllExports::GdipCreateHBITMAPFromBitmap)> m_toHandle;
};

// A GDI+ bitmap of the test's own with the pixels of a picture.
std::unique_ptr<Gdiplus::Bitmap> BitmapOf(const ArgbImage& image,
                                          Gdiplus::PixelFormat format = PixelFormat32bppARGB);

// Hands the library pixels of the test instead of the picture's own, whichever bitmap it locks. The library
// works on a copy, which is taken back when it is unlocked.
class FakePixels
{
public:
    // stride is in bytes; firstPixel is the place of the first row's first pixel.
    FakePixels(std::vector<std::uint32_t>& pixels, UINT width, UINT height, INT stride,
               std::size_t firstPixel);

    FakePixels(const FakePixels&) = delete;
    FakePixels& operator=(const FakePixels&) = delete;

    int LockCount() const { return m_lock.CallCount(); }

private:
    std::vector<std::uint32_t> m_locked;
    ImportSpy<decltype(Gdiplus::DllExports::GdipBitmapLockBits)> m_lock;
    ImportSpy<decltype(Gdiplus::DllExports::GdipBitmapUnlockBits)> m_unlock;
};

// The GDI+ bitmaps that the library has made with new and not deleted since this object's start.
class LiveBitmaps
{
public:
    LiveBitmaps();

    std::size_t Count() const;

    // Frees what is left, as a test does with bitmaps that the library keeps for good.
    void DeleteAll();

private:
    std::set<void*> m_bitmaps;
    ImportSpy<decltype(Gdiplus::DllExports::GdipAlloc)> m_allocate;
    ImportSpy<decltype(Gdiplus::DllExports::GdipFree)> m_free;
};

// Memory for an object that is made with new is refused.
class FailGdipAlloc : public FailNthCall<decltype(Gdiplus::DllExports::GdipAlloc)>
{
public:
    // Makes one call fail, counted from 1, or every one.
    explicit FailGdipAlloc(int failingCall = kEveryCall)
        : FailNthCall(VxDpiModule(), "gdiplus.dll", "GdipAlloc", failingCall, nullptr)
    {
    }
};

// Puts the framework's resource module back at the end of a scope.
class KeepResourceModule
{
public:
    KeepResourceModule();
    ~KeepResourceModule();

    KeepResourceModule(const KeepResourceModule&) = delete;
    KeepResourceModule& operator=(const KeepResourceModule&) = delete;

private:
    HINSTANCE m_kept;
};
