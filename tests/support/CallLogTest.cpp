#include "support/CallLog.h"

#include <gtest/gtest.h>

#include <memory>

TEST(CallLog, WritesNumbersTextsAndRectangles)
{
    const RECT rect = {1, 2, 3, 4};
    CallLog log;
    log.WriteCall("Call", 5, -6L, 7u, 1.5f, true, L"wide", "narrow", MAKEINTRESOURCEW(101), &rect, nullptr);
    EXPECT_EQ(log.Lines(),
              (CallLog::LineList{"Call(5, -6, 7, 1.5, 1, \"wide\", \"narrow\", @101, {1, 2, 3, 4}, null)"}));
}

TEST(CallLog, WritesStructures)
{
    const POINT point = {3, -4};
    const SIZE size = {5, 6};
    const BLENDFUNCTION blend = {AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
    CallLog log;
    log.WriteCall("Call", point, &point, &size, blend, IID_IUnknown);
    EXPECT_EQ(log.Lines(), (CallLog::LineList{"Call({3, -4}, {3, -4}, {5, 6}, {0, 0, 255, 1}, "
                                              "00000000-0000-0000-c000-000000000046)"}));
}

TEST(CallLog, NamesHandlesByTheTestOrByFirstAppearance)
{
    int first = 0;
    int second = 0;
    int known = 0;
    RECT result = {};
    CallLog log;
    log.Name(&known, "known");
    log.WriteCall("A", &first, &known);
    log.WriteCall("B", &second, &first, &result);
    log.Write("end");
    EXPECT_EQ(log.Lines(), (CallLog::LineList{"A(#1, known)", "B(#2, #1, #3)", "end"}));
    log.Clear();
    EXPECT_TRUE(log.Lines().empty());
}

TEST(RecordCalls, WritesASequenceAndStillReachesThePlatform)
{
    const std::unique_ptr<HDC__, decltype(&::DeleteDC)> dc(::CreateCompatibleDC(nullptr), &::DeleteDC);
    CallLog log;
    log.Name(dc.get(), "dc");
    const RecordCalls<decltype(::SetStretchBltMode)> mode(log, nullptr, "gdi32.dll", "SetStretchBltMode");
    const RecordCalls<decltype(::SetBrushOrgEx)> origin(log, nullptr, "gdi32.dll", "SetBrushOrgEx");

    ::SetStretchBltMode(dc.get(), HALFTONE);
    ::SetBrushOrgEx(dc.get(), 1, 2, nullptr);

    EXPECT_EQ(log.Lines(), (CallLog::LineList{"SetStretchBltMode(dc, 4)", "SetBrushOrgEx(dc, 1, 2, null)"}));
    EXPECT_EQ(::GetStretchBltMode(dc.get()), HALFTONE);
    EXPECT_EQ(mode.CallCount(), 1);
}
