#pragma once

#include <afxwin.h>

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <ostream>
#include <stdexcept>

struct FontDeleter
{
    void operator()(HFONT font) const { ::DeleteObject(font); }
};

using OwnedFont = std::unique_ptr<HFONT__, FontDeleter>;

// What GDI remembers of a font: size and attributes exactly as they were asked for. Throws for anything else.
inline LOGFONTW LogFontOf(HGDIOBJ font)
{
    LOGFONTW logFont = {};
    if (::GetObjectW(font, sizeof logFont, &logFont) != sizeof logFont)
        throw std::runtime_error("not a font");
    return logFont;
}

// A description in which no field has the value of another one or its default.
inline LOGFONTW EveryFieldDifferent(LONG height, LONG width)
{
    LOGFONTW logFont = {};
    logFont.lfHeight = height;
    logFont.lfWidth = width;
    logFont.lfEscapement = 450;
    logFont.lfOrientation = 300;
    logFont.lfWeight = 600;
    logFont.lfItalic = 1;
    logFont.lfUnderline = 2;
    logFont.lfStrikeOut = 3;
    logFont.lfCharSet = 4;
    logFont.lfOutPrecision = 5;
    logFont.lfClipPrecision = 6;
    logFont.lfQuality = 7;
    logFont.lfPitchAndFamily = 8;
    ::lstrcpynW(logFont.lfFaceName, L"Some Face", LF_FACESIZE);
    return logFont;
}

// Whether a description is another one with this height and width.
inline testing::AssertionResult IsWithSize(const LOGFONTW& logFont, LOGFONTW expected, LONG height,
                                           LONG width)
{
    expected.lfHeight = height;
    expected.lfWidth = width;
    if (std::memcmp(&logFont, &expected, sizeof expected) == 0)
        return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << "height " << logFont.lfHeight << ", width " << logFont.lfWidth << " instead of " << height
           << ", " << width << ", or another field differs";
}

// A size, the DPI that it is scaled for, and what becomes of it.
struct SizeForDpi
{
    int size;
    UINT dpi;
    LONG scaled;
};

inline void PrintTo(const SizeForDpi& row, std::ostream* stream)
{
    *stream << row.size << " at " << row.dpi << " DPI gives " << row.scaled;
}
