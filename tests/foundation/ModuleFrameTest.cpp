#include "foundation/LibraryCopy.h"
#include "foundation/LibraryModule.h"
#include "support/CallLog.h"
#include "support/ImportSpy.h"
#include "support/TestWindow.h"

#include <vxdpi/Dpi.h>
#include <vxdpi/GdiPlus.h>
#include <vxdpi/Png.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>

namespace
{
// How vxmfc.dll exports what the library's frame calls. Microsoft's framework exports by number only.
constexpr wchar_t kFrameworkDll[] = L"vxmfc.dll";
constexpr char kTermThread[] = "_Z13AfxTermThreadv";
constexpr char kTermExtension[] = "_Z22AfxTermExtensionModuleR20AFX_EXTENSION_MODULEi";
constexpr char kWinTerm[] = "_Z10AfxWinTermv";

bool FrameworkHasNames()
{
    return ::GetModuleHandleW(kFrameworkDll) != nullptr;
}

// The bytes of a resource in the library's own module; empty when it is missing.
std::string LibraryResource(WORD id, LPCWSTR type)
{
    const HMODULE library = VxDpiModule();
    const HRSRC found = ::FindResourceW(library, MAKEINTRESOURCEW(id), type);
    if (found == nullptr)
        return {};
    const void* const bytes = ::LockResource(::LoadResource(library, found));
    return std::string(static_cast<const char*>(bytes), ::SizeofResource(library, found));
}

// Stays in place until the module is gone: restoring it then would write where nothing is.
template<typename Signature>
void SpyUntilUnloaded(HMODULE module, const char* functionName,
                      typename ImportSpy<Signature>::Handler handler)
{
    static_cast<void>(new ImportSpy<Signature>(module, nullptr, functionName, std::move(handler)));
}

// The module state that is current when the library's frame handles the end of a thread.
AFX_MODULE_STATE* LibraryState()
{
    AFX_MODULE_STATE* state = nullptr;
    const ImportSpy<void()> termThread(VxDpiModule(), nullptr, kTermThread,
                                       [&]
                                       {
                                           state = AfxGetModuleState();
                                           termThread.Original()();
                                       });
    std::thread([] { VxSafeGetDpiForWindow(nullptr); }).join();
    if (state == nullptr)
        throw std::runtime_error("the library has no module state");
    return state;
}

class CurrentState
{
public:
    explicit CurrentState(AFX_MODULE_STATE* state) : m_previous(AfxSetModuleState(state)) {}

    ~CurrentState() { AfxSetModuleState(m_previous); }

    CurrentState(const CurrentState&) = delete;
    CurrentState& operator=(const CurrentState&) = delete;

private:
    AFX_MODULE_STATE* m_previous;
};

class ModuleFrame : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!FrameworkHasNames())
            GTEST_SKIP() << "the framework's functions are imported by number here";
    }
};
}

TEST(LibraryResources, TheVersionRecordIsInTheLibrary)
{
    // Behind a header of three numbers and the record's name.
    constexpr std::size_t kFixedInfo = 40;
    const std::string record = LibraryResource(VS_VERSION_INFO, RT_VERSION);
    VS_FIXEDFILEINFO info = {};
    ASSERT_GE(record.size(), kFixedInfo + sizeof info);
    std::memcpy(&info, record.data() + kFixedInfo, sizeof info);
    EXPECT_EQ(info.dwSignature, 0xFEEF04BDu);
    EXPECT_EQ(info.dwFileType, static_cast<DWORD>(VFT_DLL));
    EXPECT_EQ(info.dwFileOS, static_cast<DWORD>(VOS_NT_WINDOWS32));
    EXPECT_EQ(info.dwFileVersionMS, info.dwProductVersionMS);
    EXPECT_EQ(info.dwFileVersionLS, info.dwProductVersionLS);
    EXPECT_NE(info.dwFileVersionMS | info.dwFileVersionLS, 0u);
}

TEST(LibraryResources, TheManifestAsksForTheDpiAndForNoOtherRights)
{
    constexpr WORD kManifestOfDll = 2;
    const std::string manifest = LibraryResource(kManifestOfDll, RT_MANIFEST);
    EXPECT_NE(manifest.find("dpiAware"), std::string::npos) << manifest;
    EXPECT_NE(manifest.find(">true</"), std::string::npos) << manifest;
    EXPECT_NE(manifest.find("level=\"asInvoker\""), std::string::npos) << manifest;
}

TEST(LibraryExports, RunUnderTheModuleStateOfTheApplication)
{
    AFX_MODULE_STATE* seen = nullptr;
    const ImportSpy<decltype(::FindResourceW)> find(VxDpiModule(), "kernel32.dll", "FindResourceW",
                                                    [&](HMODULE module, LPCWSTR, LPCWSTR)
                                                    {
                                                        seen = AfxGetModuleState();
                                                        EXPECT_EQ(module, ::GetModuleHandleW(nullptr));
                                                        return nullptr;
                                                    });
    CDpiAwarePng png;
    png.AddResourceForDpi(96, 1, {});
    EXPECT_EQ(png.GetGdiplusBitmap(96), nullptr);
    EXPECT_EQ(seen, AfxGetModuleState());
    EXPECT_EQ(find.CallCount(), 1);
}

TEST(LibraryCopy, IsLoadedWithoutATokenAndLeavesTheModuleStateAsItWas)
{
    constexpr ULONG_PTR kUntouched = 0x5555555555555555;
    AFX_MODULE_STATE* const before = AfxGetModuleState();
    const LibraryCopy copy;
    EXPECT_EQ(AfxGetModuleState(), before);
    ASSERT_NE(copy.Module(), VxDpiModule());
    ULONG_PTR token = kUntouched;
    EXPECT_EQ(copy.CopyOf(&GetGdiPlusTokenFromVxDpi)(token), FALSE);
    EXPECT_EQ(token, kUntouched);
}

TEST(LibraryCopy, HoldsATokenOfItsOwn)
{
    const LibraryCopy copy;
    ULONG_PTR ofLibrary = 0;
    const int held = GetGdiPlusTokenFromVxDpi(ofLibrary);
    EXPECT_EQ(copy.CopyOf(&SetGdiPlusTokenToVxDpi)(77), TRUE);
    ULONG_PTR afterwards = 0;
    EXPECT_EQ(GetGdiPlusTokenFromVxDpi(afterwards), held);
    EXPECT_EQ(afterwards, ofLibrary);
}

TEST(LibraryCopy, DoesNotShutGdiPlusDownWhenItIsUnloaded)
{
    int shutdowns = 0;
    LibraryCopy copy;
    ASSERT_EQ(copy.CopyOf(&StartupGdiPlusByVxDpi)(), TRUE);
    SpyUntilUnloaded<decltype(Gdiplus::GdiplusShutdown)>(copy.Module(), "GdiplusShutdown",
                                                         [&shutdowns](ULONG_PTR) { ++shutdowns; });
    copy.CopyOf (&ShutdownGdiPlusByVxDpi)();
    ASSERT_EQ(shutdowns, 1);
    copy.Unload();
    EXPECT_EQ(shutdowns, 1);
}

TEST(LibraryCopy, CanBeLoadedAgainAndAgain)
{
    for (int round = 0; round < 5; ++round)
    {
        const LibraryCopy copy;
        EXPECT_EQ(copy.CopyOf(&VxSafeGetDpiForWindow)(nullptr), 96u);
    }
}

TEST_F(ModuleFrame, TheLibraryHasAModuleStateOfItsOwn)
{
    const AFX_MODULE_STATE* const state = LibraryState();
    EXPECT_NE(state, AfxGetModuleState());
    EXPECT_TRUE(state->m_bDLL);
    EXPECT_EQ(state->m_dwVersion, 0x0E00u);
    EXPECT_EQ(state->m_hCurrentInstanceHandle, VxDpiModule());
    EXPECT_EQ(state->m_hCurrentResourceHandle, VxDpiModule());
    EXPECT_EQ(state->m_pCurrentWinApp, nullptr);
}

TEST_F(ModuleFrame, TheLibraryFindsItsResourcesInItsOwnModule)
{
    const CurrentState current(LibraryState());
    EXPECT_EQ(AfxGetResourceHandle(), VxDpiModule());
    EXPECT_EQ(AfxGetInstanceHandle(), VxDpiModule());
    EXPECT_EQ(AfxGetApp(), nullptr);
}

// Writes down the module state that its messages are handled in.
class StateTeller : public CWnd
{
public:
    AFX_MODULE_STATE* Seen() const { return m_pSeen; }

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        m_pSeen = AfxGetModuleState();
        return CWnd::WindowProc(message, wParam, lParam);
    }

private:
    AFX_MODULE_STATE* m_pSeen = nullptr;
};

// Subclasses a window and has it handle a message under a state; tells in which one it was handled.
AFX_MODULE_STATE* StateOfMessages(AFX_MODULE_STATE* pStateOfWindow)
{
    const TestWindow window;
    std::unique_ptr<StateTeller> teller;
    {
        const CurrentState current(pStateOfWindow);
        teller = std::make_unique<StateTeller>();
        teller->SubclassWindow(window.Handle());
    }
    ::SendMessageW(window.Handle(), WM_NULL, 0, 0);
    AFX_MODULE_STATE* const pSeen = teller->Seen();
    const CurrentState current(pStateOfWindow);
    teller->UnsubclassWindow();
    return pSeen;
}

TEST_F(ModuleFrame, AWindowHandlesItsMessagesInTheStateThatItWasMadeIn)
{
    AFX_MODULE_STATE* const pLibraryState = LibraryState();
    EXPECT_EQ(StateOfMessages(pLibraryState), pLibraryState);
    EXPECT_EQ(StateOfMessages(AfxGetModuleState()), AfxGetModuleState());
}

// Looked up from another resource module, only the chain leads to the library.
TEST_F(ModuleFrame, TheLibraryIsInTheResourceChainOfItsState)
{
    const CurrentState current(LibraryState());
    AfxSetResourceHandle(::GetModuleHandleW(L"kernel32.dll"));
    const HINSTANCE found = AfxFindResourceHandle(MAKEINTRESOURCEW(2), RT_MANIFEST);
    AfxSetResourceHandle(VxDpiModule());
    EXPECT_EQ(found, VxDpiModule());
}

TEST_F(ModuleFrame, TheEndOfAThreadReleasesWhatTheFrameworkKeepsForIt)
{
    const ImportSpy<void()> termThread(VxDpiModule(), nullptr, kTermThread);
    std::thread([] { VxSafeGetDpiForWindow(nullptr); }).join();
    EXPECT_EQ(termThread.CallCount(), 1);
}

TEST_F(ModuleFrame, UnloadingTakesTheLibraryOutOfTheChainAndThenEndsTheFramework)
{
    CallLog log;
    LibraryCopy copy;
    const auto record = [&log](const char* name)
    {
        const bool ofCopy = AfxGetModuleState()->m_bDLL;
        log.Write(std::string(name) + (ofCopy ? " under the copy's state" : ""));
    };
    SpyUntilUnloaded<void(AFX_EXTENSION_MODULE&, BOOL)>(copy.Module(), kTermExtension,
                                                        [=](AFX_EXTENSION_MODULE& extension, BOOL all)
                                                        {
                                                            record("AfxTermExtensionModule");
                                                            AfxTermExtensionModule(extension, all);
                                                        });
    SpyUntilUnloaded<void()>(copy.Module(), kWinTerm,
                             [=]
                             {
                                 record("AfxWinTerm");
                                 AfxWinTerm();
                             });
    copy.Unload();
    EXPECT_EQ(log.Lines(), (CallLog::LineList{"AfxTermExtensionModule under the copy's state",
                                              "AfxWinTerm under the copy's state"}));
}
