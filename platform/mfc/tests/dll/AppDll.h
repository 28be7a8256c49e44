#pragma once

// A regular DLL with an application object. Loaded at run time: the functions are found by these names.

/// What the application object of the DLL has lived through; the program provides it.
struct AppDllRecord
{
    int nInitCalls;
    int nExitCalls;
    bool bInitInOwnState;
    bool bInitSeesOwnInstance;
    bool bExitInOwnState;
};

/// In the environment, the address of the AppDllRecord to be filled in; and whether InitInstance shall fail.
#define APP_DLL_RECORD L"FRAMEWORK_TESTS_RECORD"
#define APP_DLL_REFUSES L"FRAMEWORK_TESTS_REFUSES"
