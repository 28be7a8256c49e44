#include <afxwin.h>

#include "support/TestDpi.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <exception>

namespace
{
CWinApp g_application;

// A crash ends the run at once and visibly, instead of waiting in a debugger or a dialog.
LONG WINAPI ReportCrash(EXCEPTION_POINTERS* exception)
{
    const EXCEPTION_RECORD& record = *exception->ExceptionRecord;
    std::printf("\nunhandled exception %08lx at %p\n", record.ExceptionCode, record.ExceptionAddress);
    std::fflush(nullptr);
    ::TerminateProcess(::GetCurrentProcess(), 1);
    return EXCEPTION_EXECUTE_HANDLER;
}

bool StartFramework()
{
    ::SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
    ::SetUnhandledExceptionFilter(ReportCrash);
    return AfxWinInit(::GetModuleHandle(nullptr), nullptr, ::GetCommandLine(), SW_HIDE) != FALSE;
}

bool ShowDpi()
{
    try
    {
        std::printf("running at %u DPI\n", TestDpi());
        return true;
    }
    catch (const std::exception& error)
    {
        std::printf("%s\n", error.what());
        return false;
    }
}
}

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (!StartFramework())
    {
        std::puts("the framework does not start");
        return 1;
    }
    return ShowDpi() && RUN_ALL_TESTS() == 0 ? 0 : 1;
}
