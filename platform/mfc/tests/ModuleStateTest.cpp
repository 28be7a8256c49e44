#include <afxwin.h>

#include <gtest/gtest.h>

#include <memory>
#include <thread>

#include "ModuleResources.h"
#include "dll/AppDll.h"
#include "dll/TestDll.h"
#include "support/HandleCount.h"

namespace
{

HINSTANCE ProgramModule()
{
    return ::GetModuleHandle(nullptr);
}

HINSTANCE DllModule()
{
    return ::GetModuleHandle(_T("framework_test_dll.dll"));
}

LPCTSTR StringBlock(UINT nID)
{
    constexpr UINT kStringsPerBlock = 16;
    return MAKEINTRESOURCE(nID / kStringsPerBlock + 1);
}

/// A module that is loaded for the scope.
class LoadedModule
{
public:
    explicit LoadedModule(LPCTSTR pszName) : m_hModule(AfxLoadLibrary(pszName)) {}
    ~LoadedModule() { Unload(); }

    LoadedModule(const LoadedModule&) = delete;
    LoadedModule& operator=(const LoadedModule&) = delete;

    void Unload()
    {
        if (m_hModule != nullptr)
            AfxFreeLibrary(m_hModule);
        m_hModule = nullptr;
    }

    HMODULE Get() const { return m_hModule; }

private:
    HMODULE m_hModule;
};

/// Loads the DLL with the application object, which writes into the record.
class AppDllTest : public testing::Test
{
protected:
    void SetUp() override
    {
        CString address;
        address.Format(_T("%I64x"), static_cast<unsigned long long>(reinterpret_cast<UINT_PTR>(&m_record)));
        ::SetEnvironmentVariable(APP_DLL_RECORD, address);
    }

    void TearDown() override { ::SetEnvironmentVariable(APP_DLL_REFUSES, nullptr); }

    AppDllRecord m_record = {};
};

TEST(ModuleStateTest, TheProgramsStateIsCurrentAtFirst)
{
    EXPECT_EQ(AfxGetStaticModuleState(), AfxGetModuleState());
    EXPECT_FALSE(AfxGetModuleState()->m_bDLL);
}

TEST(ModuleStateTest, ProgramAndDllHaveStatesOfTheirOwn)
{
    EXPECT_NE(AfxGetStaticModuleState(), testdll::State());
    EXPECT_TRUE(testdll::State()->m_bDLL);
}

TEST(ModuleStateTest, StatesCarryTheFrameworksVersion)
{
    EXPECT_EQ(0x0E00u, AfxGetStaticModuleState()->m_dwVersion);
    EXPECT_EQ(0x0E00u, testdll::State()->m_dwVersion);
}

TEST(ModuleStateTest, CodeOfTheDllSeesTheProgramsStateUnlessItSwitches)
{
    EXPECT_FALSE(testdll::IsStateCurrent());
}

TEST(ModuleStateTest, AScopeRestoresThePreviousState)
{
    {
        AFX_MANAGE_STATE(testdll::State());
        EXPECT_EQ(testdll::State(), AfxGetModuleState());
        {
            AFX_MANAGE_STATE(AfxGetStaticModuleState());
            EXPECT_EQ(AfxGetStaticModuleState(), AfxGetModuleState());
        }
        EXPECT_EQ(testdll::State(), AfxGetModuleState());
    }
    EXPECT_EQ(AfxGetStaticModuleState(), AfxGetModuleState());
}

TEST(ModuleStateTest, SettingTellsThePreviousState)
{
    AFX_MODULE_STATE* const pPrevious = AfxSetModuleState(testdll::State());
    EXPECT_EQ(AfxGetStaticModuleState(), pPrevious);
    EXPECT_EQ(testdll::State(), AfxSetModuleState(pPrevious));
}

TEST(ModuleStateTest, IsCurrentInOneThreadOnly)
{
    AFX_MANAGE_STATE(testdll::State());
    AFX_MODULE_STATE* pSeen = nullptr;
    std::thread([&] { pSeen = AfxGetModuleState(); }).join();
    EXPECT_EQ(AfxGetStaticModuleState(), pSeen);
}

TEST(ModuleStateTest, InstanceHandlesBelongToTheState)
{
    EXPECT_EQ(ProgramModule(), AfxGetInstanceHandle());
    EXPECT_EQ(DllModule(), testdll::InstanceInside());
    EXPECT_EQ(ProgramModule(), testdll::InstanceOutside());
}

TEST(ModuleStateTest, ResourceHandlesBelongToTheState)
{
    EXPECT_EQ(ProgramModule(), AfxGetResourceHandle());
    EXPECT_EQ(DllModule(), testdll::ResourceHandleInside());
    EXPECT_EQ(ProgramModule(), testdll::ResourceHandleOutside());
}

TEST(ModuleStateTest, AResourceHandleIsSetForTheCurrentStateOnly)
{
    {
        AFX_MANAGE_STATE(testdll::State());
        AfxSetResourceHandle(ProgramModule());
    }
    EXPECT_EQ(ProgramModule(), testdll::ResourceHandleInside());
    AfxSetResourceHandle(DllModule());
    EXPECT_EQ(DllModule(), testdll::ResourceHandleOutside());
    EXPECT_EQ(ProgramModule(), testdll::ResourceHandleInside());

    AfxSetResourceHandle(ProgramModule());
    AFX_MANAGE_STATE(testdll::State());
    AfxSetResourceHandle(DllModule());
}

TEST(ModuleStateTest, TheApplicationObjectBelongsToTheState)
{
    EXPECT_NE(nullptr, AfxGetApp());
    EXPECT_EQ(AfxGetApp(), AfxGetThread());
    EXPECT_EQ(nullptr, testdll::AppInside());
    EXPECT_EQ(nullptr, testdll::ThreadInside());
}

TEST(ModuleStateTest, TheMainWindowIsTheThreadObjects)
{
    EXPECT_EQ(nullptr, AfxGetMainWnd());
    CWnd window;
    AfxGetApp()->m_pMainWnd = &window;
    EXPECT_EQ(&window, AfxGetMainWnd());
    EXPECT_EQ(nullptr, testdll::MainWndInside());
    AfxGetApp()->m_pMainWnd = nullptr;
}

TEST(ResourceSearchTest, TheProgramsResourcesAreFoundInTheProgram)
{
    EXPECT_EQ(ProgramModule(), AfxFindResourceHandle(StringBlock(IDS_PROGRAM_ONLY), RT_STRING));
    EXPECT_EQ(ProgramModule(), testdll::FindStringOutside(IDS_PROGRAM_ONLY));
}

TEST(ResourceSearchTest, TheDllsResourcesAreFoundInItsOwnState)
{
    EXPECT_EQ(DllModule(), testdll::FindStringInside(IDS_DLL_ONLY));
    EXPECT_STREQ(L"of the DLL", testdll::LoadInside(IDS_DLL_ONLY));
}

TEST(ResourceSearchTest, TheDllsResourcesAreNotFoundInTheProgramsState)
{
    EXPECT_STREQ(L"", testdll::LoadOutside(IDS_DLL_ONLY));
    EXPECT_STREQ(L"", testdll::LoadInside(IDS_PROGRAM_ONLY));
}

TEST(ResourceSearchTest, AResourceNobodyHasLeadsToTheCurrentModule)
{
    EXPECT_EQ(ProgramModule(), AfxFindResourceHandle(MAKEINTRESOURCE(4711), RT_BITMAP));
    EXPECT_EQ(DllModule(), testdll::FindStringInside(IDS_MISSING + 4000));
}

TEST(ResourceSearchTest, EachStateFindsItsOwnOfEqualIds)
{
    EXPECT_STREQ(L"both: the program's", CString(MAKEINTRESOURCE(IDS_IN_BOTH)));
    EXPECT_STREQ(L"both: the program's", testdll::LoadOutside(IDS_IN_BOTH));
    EXPECT_STREQ(L"both: the DLL's", testdll::LoadInside(IDS_IN_BOTH));
}

TEST(ResourceSearchTest, ALibraryOfTheChainIsSearchedAfterTheCurrentModule)
{
    AFX_EXTENSION_MODULE extension = {};
    ASSERT_TRUE(AfxInitExtensionModule(extension, DllModule()));
    new CDynLinkLibrary(extension);
    EXPECT_STREQ(L"of the DLL", testdll::LoadOutside(IDS_DLL_ONLY));
    EXPECT_STREQ(L"both: the program's", testdll::LoadOutside(IDS_IN_BOTH));
    AfxTermExtensionModule(extension);
    EXPECT_STREQ(L"", testdll::LoadOutside(IDS_DLL_ONLY));
}

TEST(ResourceSearchTest, TheNewestLibraryComesFirstAndASystemLibraryLast)
{
    const CDynLinkLibrary* const pFirstBefore = AfxGetModuleState()->m_pFirstLibrary;
    AfxSetResourceHandle(::GetModuleHandle(_T("kernel32.dll")));
    {
        const CDynLinkLibrary ofProgram(ProgramModule(), ProgramModule());
        const CDynLinkLibrary ofDll(DllModule(), DllModule());
        EXPECT_STREQ(L"both: the DLL's", CString(MAKEINTRESOURCE(IDS_IN_BOTH)));
    }
    {
        AFX_EXTENSION_MODULE system = {TRUE, DllModule(), DllModule()};
        const CDynLinkLibrary ofProgram(ProgramModule(), ProgramModule());
        const CDynLinkLibrary ofSystem(system, TRUE);
        EXPECT_STREQ(L"both: the program's", CString(MAKEINTRESOURCE(IDS_IN_BOTH)));
    }
    AfxSetResourceHandle(ProgramModule());
    EXPECT_EQ(pFirstBefore, AfxGetModuleState()->m_pFirstLibrary);
}

TEST(ResourceSearchTest, TheDllIsInItsOwnChain)
{
    ASSERT_NE(nullptr, testdll::State()->m_pFirstLibrary);
    EXPECT_EQ(DllModule(), testdll::State()->m_pFirstLibrary->m_hModule);
    EXPECT_EQ(nullptr, testdll::State()->m_pFirstLibrary->m_pNextDLL);
}

TEST(ResourceSearchTest, EndingAnExtensionEverywhereEmptiesTheChainsOfAllModules)
{
    AFX_EXTENSION_MODULE extension = {TRUE, ProgramModule(), ProgramModule()};
    new CDynLinkLibrary(extension);
    {
        AFX_MANAGE_STATE(testdll::State());
        new CDynLinkLibrary(extension);
    }
    EXPECT_STREQ(L"of the program", testdll::LoadInside(IDS_PROGRAM_ONLY));
    AfxTermExtensionModule(extension, TRUE);
    EXPECT_STREQ(L"", testdll::LoadInside(IDS_PROGRAM_ONLY));
    EXPECT_EQ(nullptr, AfxGetModuleState()->m_pFirstLibrary);
}

TEST(DllWindowTest, IsKnownInTheDllsStateOnly)
{
    const HWND hWnd = testdll::CreateDllWindow();
    ASSERT_NE(nullptr, hWnd);
    EXPECT_TRUE(testdll::KnowsWindowInside(hWnd));
    EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(hWnd));
    ::DestroyWindow(hWnd);
    EXPECT_FALSE(testdll::KnowsWindowInside(hWnd));
}

TEST(DllWindowTest, ItsHandlersRunInTheDllsState)
{
    const HWND hWnd = testdll::CreateDllWindow();
    ASSERT_NE(nullptr, hWnd);
    EXPECT_EQ(testdll::State(),
              reinterpret_cast<AFX_MODULE_STATE*>(::SendMessage(hWnd, testdll::kTellState, 0, 0)));
    EXPECT_EQ(AfxGetStaticModuleState(), AfxGetModuleState());
    ::DestroyWindow(hWnd);
}

class CProgramWnd : public CWnd
{
protected:
    LRESULT WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam) override
    {
        if (nMessage == testdll::kTellState)
            return reinterpret_cast<LRESULT>(AfxGetModuleState());
        return CWnd::WindowProc(nMessage, wParam, lParam);
    }
};

TEST(DllWindowTest, AWindowOfTheProgramRunsInTheProgramsStateWhenTheDllSendsTheMessage)
{
    CProgramWnd window;
    ASSERT_TRUE(window.CreateEx(0, AfxRegisterWndClass(0), _T(""), WS_POPUP, CRect(), nullptr, 0));
    EXPECT_EQ(AfxGetStaticModuleState(),
              reinterpret_cast<AFX_MODULE_STATE*>(testdll::SendInside(window, testdll::kTellState)));
    EXPECT_FALSE(testdll::KnowsWindowInside(window));
    window.DestroyWindow();
}

TEST_F(AppDllTest, LoadingRunsInitInstanceInTheDllsState)
{
    const LoadedModule dll(_T("framework_app_dll.dll"));
    ASSERT_NE(nullptr, dll.Get());
    EXPECT_EQ(1, m_record.nInitCalls);
    EXPECT_TRUE(m_record.bInitInOwnState);
    EXPECT_TRUE(m_record.bInitSeesOwnInstance);
    EXPECT_EQ(0, m_record.nExitCalls);
}

TEST_F(AppDllTest, LoadingLeavesTheProgramsStateAndApplicationObject)
{
    CWinApp* const pApp = AfxGetApp();
    const LoadedModule dll(_T("framework_app_dll.dll"));
    ASSERT_NE(nullptr, dll.Get());
    EXPECT_EQ(AfxGetStaticModuleState(), AfxGetModuleState());
    EXPECT_EQ(pApp, AfxGetApp());
    EXPECT_EQ(pApp, AfxGetThread());
}

TEST_F(AppDllTest, UnloadingRunsExitInstanceInTheDllsState)
{
    LoadedModule dll(_T("framework_app_dll.dll"));
    ASSERT_NE(nullptr, dll.Get());
    dll.Unload();
    EXPECT_EQ(1, m_record.nExitCalls);
    EXPECT_TRUE(m_record.bExitInOwnState);
    EXPECT_EQ(nullptr, ::GetModuleHandle(_T("framework_app_dll.dll")));
}

TEST_F(AppDllTest, ARefusingInitInstanceKeepsTheDllOut)
{
    ::SetEnvironmentVariable(APP_DLL_REFUSES, _T("1"));
    const LoadedModule dll(_T("framework_app_dll.dll"));
    EXPECT_EQ(nullptr, dll.Get());
    EXPECT_EQ(1, m_record.nInitCalls);
    EXPECT_EQ(1, m_record.nExitCalls);
    EXPECT_EQ(AfxGetStaticModuleState(), AfxGetModuleState());
}

TEST_F(AppDllTest, LoadingAndUnloadingLeavesNothingOfTheFrameworkBehind)
{
    // The block is the C run-time's: it stays behind any unloaded DLL that has a static object.
    EXPECT_TRUE(LeavesPerCall({{HandleKind::CrtBlock, 1}},
                              [] { const LoadedModule dll(_T("framework_app_dll.dll")); }));
}

TEST_F(AppDllTest, LoadedAgainItHasAStateOfAnotherSerialNumber)
{
    const auto serialNumber = [](const LoadedModule& dll)
    {
        using StateFunction = AFX_MODULE_STATE* (*)();
        const FARPROC pfnState = ::GetProcAddress(dll.Get(), "AppDllState");
        return reinterpret_cast<StateFunction>(reinterpret_cast<void*>(pfnState))()->SerialNumber();
    };
    LoadedModule first(_T("framework_app_dll.dll"));
    const UINT nFirst = serialNumber(first);
    first.Unload();
    const LoadedModule second(_T("framework_app_dll.dll"));
    EXPECT_NE(nFirst, serialNumber(second));
}

} // namespace
