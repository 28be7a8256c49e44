#include "foundation/CallSequence.h"
#include "support/Pixels.h"
#include "support/TestWindow.h"

#include <vxdpi/Fonts.h>

namespace
{
const CallNames kDpiQuery = {"IsWindow", "GetDpiForWindow"};

LOGFONTW PlainFont(LONG height, LONG width = 0)
{
    LOGFONTW font = {};
    font.lfHeight = height;
    font.lfWidth = width;
    return font;
}

CallNames CallsOfPoints(HWND window)
{
    HFONT font = nullptr;
    const CallNames calls = CallsOf(
        [&]
        {
            font = CreateFont_DPIAware(window, 9, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0,
                                       L"Tahoma");
        });
    ::DeleteObject(font);
    return calls;
}

CallNames CallsOfHeight(LOGFONTW* logFont, HWND window)
{
    HFONT font = nullptr;
    const CallNames calls = CallsOf([&] { font = CreateFontIndirect_DPIAware(logFont, window); });
    ::DeleteObject(font);
    return calls;
}

class DpiAwareFontSequence : public FrameworkCallSequence
{
protected:
    CallNames CreateIndirect(LOGFONTW font, UINT dpi)
    {
        m_font.DeleteObject();
        return CallsOf([&] { m_font.CreateFontIndirectW(&font, dpi); });
    }

    CallNames Create(UINT dpi, int width)
    {
        m_font.DeleteObject();
        return CallsOf(
            [&] {
                m_font.CreateFontW(dpi, -12, width, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0,
                                   L"Tahoma");
            });
    }

    CallNames CreatePoint(UINT dpi)
    {
        m_font.DeleteObject();
        return CallsOf([&] { m_font.CreatePointFont(dpi, 90, L"Tahoma", &m_dc); });
    }

    CallNames CreatePointIndirect(LOGFONTW font, UINT dpi)
    {
        m_font.DeleteObject();
        return CallsOf([&] { m_font.CreatePointFontIndirect(dpi, &font, &m_dc); });
    }

    CFontDPIAware m_font;
    CClientDC m_dc{nullptr};
};
}

TEST(FontSequence, PointsTakeOneDpiQueryAndOneScaling)
{
    const TestWindow window;
    EXPECT_TRUE(AreCalls(CallsOfPoints(window.Handle()), InOrder({kDpiQuery, {"MulDiv", "CreateFontW"}})));
    EXPECT_TRUE(AreCalls(CallsOfPoints(nullptr), {"MulDiv", "CreateFontW"}));
}

TEST(FontSequence, AHeightTakesOneDpiQueryAndOneScaling)
{
    const TestWindow window;
    LOGFONTW font = PlainFont(-12);
    EXPECT_TRUE(AreCalls(CallsOfHeight(&font, window.Handle()),
                         InOrder({kDpiQuery, {"MulDiv", "CreateFontIndirectW"}})));
    EXPECT_TRUE(AreCalls(CallsOfHeight(&font, nullptr), {"MulDiv", "CreateFontIndirectW"}));
    EXPECT_TRUE(AreCalls(CallsOfHeight(nullptr, window.Handle()), {}));
}

TEST(FontSequence, AnInitialSizeNeedsNoCall)
{
    CFontDPIAware font;
    EXPECT_TRUE(AreCalls(CallsOf([&] { font.InitFontSize(-12, 0, 96); }), {}));
    LOGFONTW logFont = PlainFont(-13);
    EXPECT_TRUE(AreCalls(CallsOf([&] { font.InitFontSize(&logFont, 144); }), {}));
}

TEST_F(DpiAwareFontSequence, AFontFromARecordIsScaledMadeAndAttached)
{
    const CallNames calls = {"MulDiv", "CreateFontIndirectW", "CGdiObject::Attach"};
    EXPECT_TRUE(AreCalls(CreateIndirect(PlainFont(-12), 96), calls));
    EXPECT_TRUE(AreCalls(CreateIndirect(PlainFont(-12), 144), calls));
    EXPECT_TRUE(AreCalls(CallsOf([&] { m_font.CreateFontIndirectW(nullptr, 96); }), {}));
}

TEST_F(DpiAwareFontSequence, ARememberedWidthIsScaledToo)
{
    const CallNames calls = {"MulDiv", "MulDiv", "CreateFontIndirectW", "CGdiObject::Attach"};
    EXPECT_TRUE(AreCalls(CreateIndirect(PlainFont(-12, 5), 96), calls));
    EXPECT_TRUE(AreCalls(CreateIndirect(PlainFont(-12), 144), calls));
}

TEST_F(DpiAwareFontSequence, AFontFromArgumentsScalesTheWidthThatIsGiven)
{
    EXPECT_TRUE(AreCalls(Create(96, 0), {"MulDiv", "CreateFontW", "CGdiObject::Attach"}));
    EXPECT_TRUE(AreCalls(Create(144, 5), {"MulDiv", "MulDiv", "CreateFontW", "CGdiObject::Attach"}));
}

TEST_F(DpiAwareFontSequence, PointsAskTheContextOnlyTheFirstTime)
{
    EXPECT_TRUE(AreCalls(CreatePoint(96), {"GetDeviceCaps", "MulDiv", "CFont::CreatePointFont"}));
    EXPECT_TRUE(AreCalls(CreatePoint(144), {"MulDiv", "CFont::CreatePointFont"}));
    EXPECT_TRUE(AreCalls(CallsOf([&] { m_font.CreatePointFont(96, 90, L"Tahoma", nullptr); }), {}));
}

TEST_F(DpiAwareFontSequence, PointsInARecordAskTheContextEachTime)
{
    const CallNames calls = {"GetDeviceCaps", "MulDiv", "CFont::CreatePointFontIndirect"};
    EXPECT_TRUE(AreCalls(CreatePointIndirect(PlainFont(90), 96), calls));
    EXPECT_TRUE(AreCalls(CreatePointIndirect(PlainFont(90), 144), calls));
    LOGFONTW font = PlainFont(90);
    EXPECT_TRUE(AreCalls(CallsOf([&] { m_font.CreatePointFontIndirect(96, &font, nullptr); }), {}));
}
