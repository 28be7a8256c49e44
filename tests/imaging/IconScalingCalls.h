#pragma once

#include "imaging/RecordNamed.h"

#include <cstdint>
#include <vector>

// Calls with which a library loads, examines, makes and destroys icons, written down in their order. A spy
// that makes one of them fail has to start before, the failing call is then written down as well.
//
// Objects are named when they are made: "loaded1" (an icon), "colors" and "mask" (the bitmaps of an icon that
// is examined), "screen1", "pixels" (a DIB section) and "bits" (its memory), "newMask", "newIcon". What a new
// handle is named later wins, as handles may come again.
class IconScalingCalls
{
public:
    IconScalingCalls(CallLog& log, HMODULE library);

    // The bytes of the last mask, from the first to the last that the platform reads.
    const std::vector<std::uint8_t>& MaskBytes() const { return m_maskBytes; }

private:
    std::vector<std::uint8_t> m_maskBytes;
    RecordNamed<decltype(::LoadImageW)> m_loadImage;
    ImportSpy<decltype(::GetIconInfo)> m_getInfo;
    ImportSpy<decltype(::GetObjectW)> m_getObject;
    RecordCalls<decltype(::DeleteObject)> m_deleteObject;
    RecordNamed<decltype(::GetDC)> m_getDc;
    RecordCalls<decltype(::ReleaseDC)> m_releaseDc;
    ImportSpy<decltype(::CreateDIBSection)> m_createSection;
    ImportSpy<decltype(::CreateBitmap)> m_createMask;
    ImportSpy<decltype(::CreateIconIndirect)> m_createIcon;
    RecordCalls<decltype(::DestroyIcon)> m_destroyIcon;
};
