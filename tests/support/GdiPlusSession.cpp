#include "support/GdiPlusSession.h"

#include <stdexcept>

GdiPlusSession::GdiPlusSession()
{
    const Gdiplus::GdiplusStartupInput input;
    if (Gdiplus::GdiplusStartup(&m_token, &input, nullptr) != Gdiplus::Ok)
        throw std::runtime_error("GDI+ does not start");
}

GdiPlusSession::~GdiPlusSession()
{
    Gdiplus::GdiplusShutdown(m_token);
}
