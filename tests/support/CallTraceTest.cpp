#include "support/CallTrace.h"

#include "foundation/FrameworkWindow.h"
#include "foundation/LibraryModule.h"
#include "support/FrameworkNames.h"
#include "support/GdiPlusSession.h"
#include "support/ImportSpy.h"
#include "support/TestWindow.h"

#include <vxdpi/Controls.h>
#include <vxdpi/Dpi.h>
#include <vxdpi/Layout.h>

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

namespace
{
using DrawFlat = decltype(Gdiplus::DllExports::GdipDrawImageRectRect);

constexpr int kFaked = 4711;

// A compiler may read an import's address once per function. Through this pointer every call is made in a
// function of its own, as a module's calls are when a trace starts before the module is entered.
int (*volatile g_askMetric)(int) = [](int index) { return ::GetSystemMetrics(index); };

CallTrace TraceOfProgram()
{
    return CallTrace({::GetModuleHandleW(nullptr)});
}
}

TEST(CallTrace, WritesEachCallAndStillReachesThePlatform)
{
    const int real = ::GetSystemMetrics(SM_CYCAPTION);
    const CallTrace trace = TraceOfProgram();
    EXPECT_EQ(g_askMetric(SM_CYCAPTION), real);
    EXPECT_EQ(g_askMetric(SM_CYCAPTION), real);
    EXPECT_EQ(trace.Calls(), (CallNames{"GetSystemMetrics", "GetSystemMetrics"}));
}

TEST(CallTrace, PassesArgumentsInRegistersAndOnTheStack)
{
    std::vector<float> seen;
    const ImportSpy<DrawFlat> spy(
        nullptr, "gdiplus.dll", "GdipDrawImageRectRect",
        [&](Gdiplus::GpGraphics* graphics, Gdiplus::GpImage* image, float x, float y, float width,
            float height, float sourceX, float sourceY, float sourceWidth, float sourceHeight,
            Gdiplus::GpUnit unit, const Gdiplus::GpImageAttributes*, Gdiplus::DrawImageAbort, void*)
        {
            EXPECT_EQ(graphics, nullptr);
            EXPECT_EQ(image, nullptr);
            EXPECT_EQ(unit, Gdiplus::UnitPixel);
            seen = {x, y, width, height, sourceX, sourceY, sourceWidth, sourceHeight};
            return Gdiplus::Ok;
        });
    const CallTrace trace = TraceOfProgram();
    Gdiplus::DllExports::GdipDrawImageRectRect(nullptr, nullptr, 1.5f, 2.5f, 3.5f, 4.5f, 5.5f, 6.5f, 7.5f,
                                               8.5f, Gdiplus::UnitPixel, nullptr, nullptr, nullptr);
    EXPECT_EQ(seen, (std::vector<float>{1.5f, 2.5f, 3.5f, 4.5f, 5.5f, 6.5f, 7.5f, 8.5f}));
    EXPECT_EQ(trace.Calls(), (CallNames{"GdipDrawImageRectRect"}));
}

TEST(CallTrace, FollowsOneModuleOrSeveral)
{
    const TestWindow window;
    {
        const CallTrace trace({VxDpiModule()});
        g_askMetric(SM_CXSIZE);
        VxSafeGetDpiForWindow(window.Handle());
        EXPECT_EQ(trace.Calls(), (CallNames{"IsWindow", "GetDpiForWindow"}));
    }
    const CallTrace trace({VxDpiModule(), ::GetModuleHandleW(nullptr)});
    g_askMetric(SM_CXSIZE);
    VxSafeGetDpiForWindow(window.Handle());
    EXPECT_EQ(trace.Calls(), (CallNames{"GetSystemMetrics", "IsWindow", "GetDpiForWindow"}));
}

TEST(CallTrace, NamesWhatIsCalledOfTheFramework)
{
    FrameworkWindow window;
    const CallTrace trace({VxDpiModule()}, FrameworkModule());
    if (!trace.FollowsFramework())
        GTEST_SKIP() << "this framework's functions have no names";
    CButton child;
    child.Create(L"", WS_CHILD, CRect(0, 0, 10, 10), window.Object(), 1);
    CDpiLayoutManager manager(window.Object());
    manager.AddControl(1u, ANCHOR_TOPLEFT, 0, FALSE);
    EXPECT_EQ(trace.Calls(), (CallNames{"CWnd::GetDlgItem", "CWnd::GetDlgCtrlID"}));
}

TEST(CallTrace, LeavesOutWhatTheFrameworkCallsOfItself)
{
    FrameworkWindow parent;
    CRealButton button; // its window procedure leads to functions that the library has in its tables
    button.Create(L"", WS_CHILD, CRect(0, 0, 10, 10), parent.Object(), 1);
    const CallTrace trace({VxDpiModule()}, FrameworkModule());
    button.SendMessage(BM_CLICK, 0, 0);
    EXPECT_EQ(trace.Calls(), CallNames());
}

TEST(CallTrace, TakesACallThatIsRepeatedFromOnePlaceEachTime)
{
    class OpenHeader : public CDpiAwareHeaderCtrl
    {
    public:
        using CDpiAwareHeaderCtrl::OnMouseMove;
    };
    FrameworkWindow parent;
    OpenHeader header;
    header.Create(WS_CHILD, CRect(0, 0, 10, 10), parent.Object(), 1);
    const CallTrace trace({VxDpiModule()}, FrameworkModule());
    if (!trace.FollowsFramework())
        GTEST_SKIP() << "this framework's functions have no names";
    for (int i = 0; i < 2; ++i)
        header.OnMouseMove(0, CPoint(1, 1)); // ends in the framework's, and that in the default processing
    EXPECT_EQ(trace.Calls(), (CallNames{"CWnd::OnMouseMove", "CWnd::OnMouseMove"}));
}

TEST(FrameworkNames, AreReadFromExports)
{
    EXPECT_EQ(FrameworkFunctionName("_Z20AfxGetResourceHandlev"), "AfxGetResourceHandle");
    EXPECT_EQ(FrameworkFunctionName("_ZN4CWnd7SetFontEP5CFonti"), "CWnd::SetFont");
    EXPECT_EQ(FrameworkFunctionName("_ZNK4CWnd10GetDlgItemEi"), "CWnd::GetDlgItem");
    EXPECT_EQ(FrameworkFunctionName("_ZN9CClientDCC1EP4CWnd"), "CClientDC::CClientDC");
    EXPECT_EQ(FrameworkFunctionName("_ZN3CDCD2Ev"), "CDC::~CDC");
}

TEST(FrameworkNames, LeaveOutDataBookkeepingAndOtherExports)
{
    EXPECT_EQ(FrameworkFunctionName("_ZN5CView10classCViewE"), "");
    EXPECT_EQ(FrameworkFunctionName("_ZN7CButtonC2Ev"), "");
    EXPECT_EQ(FrameworkFunctionName("_ZN7CButtonD2Ev"), "");
    EXPECT_EQ(FrameworkFunctionName("_ZNK4CWnd11GetSafeHwndEv"), "");
    EXPECT_EQ(FrameworkFunctionName("_ZN5CView17GetThisMessageMapEv"), "");
    EXPECT_EQ(FrameworkFunctionName("_ZNK5CFont15GetRuntimeClassEv"), "");
    EXPECT_EQ(FrameworkFunctionName("_ZN14CSimpleStringTIwLb1EEC2Ev"), "");
    EXPECT_EQ(FrameworkFunctionName("_ZTV5CView"), "");
    EXPECT_EQ(FrameworkFunctionName("_Z99Short"), "Short");
    EXPECT_EQ(FrameworkFunctionName("?GetDlgItem@CWnd@@QEBAPEAV1@H@Z"), "");
    EXPECT_EQ(FrameworkFunctionName(""), "");
}

TEST(CallTrace, BringsAllImportsBack)
{
    void** const slot = FindImports(VxDpiModule(), "user32.dll", "GetDpiForWindow").at(0);
    void* const address = *slot;
    {
        const CallTrace trace({VxDpiModule()});
        EXPECT_NE(*slot, address);
    }
    EXPECT_EQ(*slot, address);
    EXPECT_EQ(VxSafeGetDpiForWindow(nullptr), 96u);
}

TEST(CallTrace, AnAddressThatWasTakenMeanwhileStillReachesThePlatform)
{
    void** const slot = FindImports(VxDpiModule(), "user32.dll", "GetDpiForWindow").at(0);
    const TestWindow window;
    decltype(&::GetDpiForWindow) taken = nullptr;
    {
        const CallTrace trace({VxDpiModule()});
        taken = reinterpret_cast<decltype(taken)>(*slot);
    }
    EXPECT_EQ(taken(window.Handle()), ::GetDpiForWindow(window.Handle()));
    const CallTrace again({VxDpiModule()});
    EXPECT_EQ(reinterpret_cast<decltype(taken)>(*slot), taken);
}

TEST(CallTrace, GoesOnToTheSpyThatItCovers)
{
    const ImportSpy<decltype(::GetSystemMetrics)> spy(nullptr, "user32.dll", "GetSystemMetrics",
                                                      [](int) { return kFaked; });
    const CallTrace trace = TraceOfProgram();
    EXPECT_EQ(g_askMetric(SM_CXSIZE), kFaked);
    EXPECT_EQ(trace.Calls(), (CallNames{"GetSystemMetrics"}));
}

TEST(CallTrace, LeavesTheLastErrorAlone)
{
    constexpr DWORD kError = 4712;
    const ImportSpy<decltype(::GetSystemMetrics)> spy(nullptr, "user32.dll", "GetSystemMetrics",
                                                      [](int) { return static_cast<int>(::GetLastError()); });
    const CallTrace trace = TraceOfProgram();
    ::SetLastError(kError);
    EXPECT_EQ(g_askMetric(SM_CXSIZE), static_cast<int>(kError));
}

TEST(CallTrace, TakesDownWhatAStandInTells)
{
    CallTrace::Write("before");
    const CallTrace trace = TraceOfProgram();
    CallTrace::Write("Object.Method");
    g_askMetric(SM_CXSIZE);
    EXPECT_EQ(trace.Calls(), (CallNames{"Object.Method", "GetSystemMetrics"}));
}

TEST(CallTrace, RefusesASecondOneAndNoModule)
{
    {
        const CallTrace trace = TraceOfProgram();
        EXPECT_THROW(TraceOfProgram(), std::logic_error);
    }
    EXPECT_THROW(CallTrace({nullptr}), std::runtime_error);
    EXPECT_THROW(CallTrace({::GetModuleHandleW(L"ntdll.dll")}), std::runtime_error);
    const CallTrace trace = TraceOfProgram();
    g_askMetric(SM_CXSIZE);
    EXPECT_EQ(trace.Calls(), (CallNames{"GetSystemMetrics"}));
}
