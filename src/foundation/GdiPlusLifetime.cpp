#include <vxdpi/Dpi.h>
#include <vxdpi/GdiPlus.h>

namespace
{
ULONG_PTR g_gdiPlusToken = 0;

Gdiplus::Status StartGdiPlus(ULONG_PTR& token)
{
    const Gdiplus::GdiplusStartupInput input(nullptr, FALSE, FALSE);
    return Gdiplus::GdiplusStartup(&token, &input, nullptr);
}
} // namespace

int StartupGdiPlusByVxDpi()
{
    return StartGdiPlus(g_gdiPlusToken) == Gdiplus::Ok ? TRUE : FALSE;
}

void ShutdownGdiPlusByVxDpi()
{
    // The token is kept by contract: a component that asks later still learns that GDI+ was started here.
    if (g_gdiPlusToken)
        Gdiplus::GdiplusShutdown(g_gdiPlusToken);
}

int GetGdiPlusTokenFromVxDpi(ULONG_PTR& token)
{
    if (!g_gdiPlusToken)
        return FALSE;
    token = g_gdiPlusToken;
    return TRUE;
}

int SetGdiPlusTokenToVxDpi(ULONG_PTR token)
{
    if (g_gdiPlusToken)
        return FALSE;
    g_gdiPlusToken = token;
    return TRUE;
}

CGdiPlusInitializer::CGdiPlusInitializer() : m_token(0)
{
    if (StartGdiPlus(m_token) != Gdiplus::Ok)
        m_token = 0;
}

CGdiPlusInitializer::CGdiPlusInitializer(const CGdiPlusInitializer& other) = default;

CGdiPlusInitializer& CGdiPlusInitializer::operator=(const CGdiPlusInitializer& other) = default;

CGdiPlusInitializer::~CGdiPlusInitializer()
{
    if (m_token)
        Gdiplus::GdiplusShutdown(m_token);
}
