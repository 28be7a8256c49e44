#include "StandIns.h"

#include <cstring>

namespace
{
constexpr UINT kDpi = 144;

HBITMAP WINAPI CreateDib(HDC, const BITMAPINFO*, UINT, void** ppBits, HANDLE, DWORD)
{
    *ppBits = StandInPixels();
    return AnyHandle<HBITMAP>();
}

BOOL WINAPI IconInfo(HICON, ICONINFO* pInfo)
{
    *pInfo = {TRUE, 0, 0, AnyHandle<HBITMAP>(), AnyHandle<HBITMAP>()};
    return TRUE;
}

int WINAPI ObjectInfo(HANDLE, int size, void* pInfo)
{
    std::memset(pInfo, 0, static_cast<std::size_t>(size));
    return size;
}

HWND WINAPI NextWindow(HWND, UINT nCommand)
{
    static int s_given = 0;
    if (nCommand == GW_CHILD)
        s_given = 0;
    return s_given < CurrentAnswers().childCount ? AnyHandle<HWND>(static_cast<std::uintptr_t>(++s_given))
                                                 : nullptr;
}

LONG WINAPI WindowLong(HWND, int)
{
    return static_cast<LONG>(WS_CHILD | WS_VISIBLE);
}

BOOL WINAPI Place(HWND, RECT* pRect)
{
    *pRect = {0, 0, 1200, 900};
    return TRUE;
}

BOOL WINAPI BarInfo(HWND, int, SCROLLINFO* pInfo)
{
    constexpr int kMaximum = 999;
    constexpr UINT kPage = 400;
    pInfo->nMin = 0;
    pInfo->nMax = kMaximum;
    pInfo->nPage = kPage;
    pInfo->nPos = 0;
    return TRUE;
}

UINT WINAPI WindowDpi(HWND)
{
    return kDpi;
}

BOOL WINAPI NotEmpty(const RECT*)
{
    return FALSE;
}
} // namespace

std::vector<StandIn> WindowStandIns()
{
    return {
        MakeStandIn<decltype(::CreateDIBSection)>("CreateDIBSection", CreateDib),
        MakeStandIn<decltype(::GetIconInfo)>("GetIconInfo", IconInfo),
        MakeStandIn<decltype(::GetObjectW)>("GetObjectW", ObjectInfo),
        MakeStandIn<decltype(::GetWindow)>("GetWindow", NextWindow),
        MakeStandIn<decltype(::GetWindowLongW)>("GetWindowLongW", WindowLong),
        MakeStandIn<decltype(::GetWindowRect)>("GetWindowRect", Place),
        MakeStandIn<decltype(::GetClientRect)>("GetClientRect", Place),
        MakeStandIn<decltype(::GetScrollInfo)>("GetScrollInfo", BarInfo),
        MakeStandIn<decltype(::GetDpiForWindow)>("GetDpiForWindow", WindowDpi),
        MakeStandIn<decltype(::IsRectEmpty)>("IsRectEmpty", NotEmpty),
    };
}
