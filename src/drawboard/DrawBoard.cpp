#include <vxdpi/DrawBoard.h>

#include "SceneMapping.h"

#include <foundation/BaseDpi.h>
#include <foundation/Guards.h>

namespace
{
constexpr Gdiplus::ARGB kTransparentWhite = 0x00FFFFFF;
constexpr Gdiplus::ARGB kTransparentBlack = 0x00000000;

/// The place of an image that keeps its own size: its pixels taken back to 96-DPI units.
CRect NaturalPlace(Gdiplus::Image& image, UINT nDrawnForDpi, CPoint pt)
{
    const int dpi = static_cast<int>(nDrawnForDpi);
    const int width = ::MulDiv(static_cast<int>(image.GetWidth()), kBaseDpi, dpi);
    const int height = ::MulDiv(static_cast<int>(image.GetHeight()), kBaseDpi, dpi);
    return CRect(pt.x, pt.y, WrappingAdd(pt.x, width), WrappingAdd(pt.y, height));
}

/// Without a surface there is nothing to draw, and nothing that could fail.
int DrawStretched(Gdiplus::Graphics* pGraphics, Gdiplus::Image* pImage, const CRect& rc)
{
    if (!pGraphics)
        return TRUE;
    const Gdiplus::Rect target(rc.left, rc.top, WrappingWidth(rc), WrappingHeight(rc));
    return pGraphics->DrawImage(pImage, target.X, target.Y, target.Width, target.Height) == Gdiplus::Ok;
}

/// Gives a bitmap to a control. A control that makes a copy leaves the caller the bitmap.
void HandOver(CStatic& ctrl, UniqueBitmap bitmap)
{
    const UniqueBitmap previous(ctrl.SetBitmap(bitmap.get()));
    if (ctrl.GetBitmap() == bitmap.get())
        static_cast<void>(bitmap.release());
    bitmap.reset();
}
} // namespace

CRect CoordinatesMapping::ToDevice(const CRect& rc) const
{
    return SceneMapping::ToDevice(rc, m_rcLogical, m_rcDevice);
}

CDrawBoard::CDrawBoard() : m_nDpi(kBaseDpi), m_pGraphics(nullptr), m_pBoard(nullptr) {}

CDrawBoard::CDrawBoard(const CDrawBoard& other) = default;

CDrawBoard& CDrawBoard::operator=(const CDrawBoard& other) = default;

CDrawBoard::~CDrawBoard()
{
    DestroyDrawBoardGraphics();
}

int CDrawBoard::AddImageResource(const UINT& imageId, const UINT& dpi, const UINT& resId, const CString& type)
{
    const auto found = m_images.find(imageId);
    if (found != m_images.end())
        return found->second.Add(dpi, resId, type);

    CDpiImageResource image;
    if (!image.Add(dpi, resId, type))
        return FALSE;
    return m_images.emplace(imageId, image).second ? TRUE : FALSE;
}

UINT CDrawBoard::SetDpi(const UINT& dpi)
{
    const UINT nPrevious = m_nDpi;
    m_nDpi = dpi;
    return nPrevious;
}

CSize CDrawBoard::SetDrawBoardSize(const CSize& size)
{
    const CSize previous(WrappingWidth(m_mapping.m_rcLogical), WrappingHeight(m_mapping.m_rcLogical));
    m_mapping.m_rcLogical = CRect(0, 0, size.cx, size.cy);
    return previous;
}

int CDrawBoard::DrawImageToBoard(UINT imageId, CRect rc)
{
    Gdiplus::Image* const pImage = GetImage(imageId, nullptr);
    if (!pImage)
        return FALSE;
    return DrawStretched(m_pGraphics, pImage, m_mapping.ToDevice(rc));
}

int CDrawBoard::DrawImageToBoard(UINT imageId, CPoint pt)
{
    UINT nChosenDpi = 0;
    Gdiplus::Image* const pImage = GetImage(imageId, &nChosenDpi);
    if (!pImage || nChosenDpi == 0)
        return FALSE;
    return DrawStretched(m_pGraphics, pImage, m_mapping.ToDevice(NaturalPlace(*pImage, nChosenDpi, pt)));
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): by value is part of the interface.
int CDrawBoard::DrawImage(HDC hdc, const CRect& rc, std::function<int()> compose)
{
    if (!CreateDrawBoardGraphics(CSize(WrappingWidth(rc), WrappingHeight(rc))))
        return FALSE;
    if (!compose())
        return FALSE;
    Gdiplus::Graphics target(hdc);
    const Gdiplus::Point topLeft(rc.left, rc.top);
    return target.DrawImage(m_pBoard, topLeft.X, topLeft.Y) == Gdiplus::Ok;
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): by value is part of the interface.
int CDrawBoard::DrawImage(CStatic& ctrl, std::function<int()> compose)
{
    CRect rcClient;
    ctrl.GetClientRect(&rcClient);
    if (!CreateDrawBoardGraphics(rcClient.Size()))
        return FALSE;
    if (!compose())
        return FALSE;
    if (!m_pBoard)
        return FALSE;

    HBITMAP hBitmap = nullptr;
    m_pBoard->GetHBITMAP(Gdiplus::Color(kTransparentBlack), &hBitmap);
    if (!hBitmap)
        return FALSE;
    HandOver(ctrl, UniqueBitmap(hBitmap));
    return TRUE;
}

Gdiplus::Image* CDrawBoard::GetImage(const UINT& imageId, UINT* chosenDpi)
{
    const auto found = m_images.find(imageId);
    return found != m_images.end() ? found->second.Pick(m_nDpi, chosenDpi) : nullptr;
}

int CDrawBoard::CreateDrawBoardGraphics(const CSize& size)
{
    DestroyDrawBoardGraphics();
    m_mapping.m_rcDevice = CRect(0, 0, size.cx, size.cy);
    m_pBoard = new Gdiplus::Bitmap(size.cx, size.cy, PixelFormat32bppARGB);
    if (!m_pBoard)
        return FALSE;
    m_pGraphics = new Gdiplus::Graphics(m_pBoard);
    if (!m_pGraphics || m_pGraphics->Clear(Gdiplus::Color(kTransparentWhite)) != Gdiplus::Ok)
    {
        DestroyDrawBoardGraphics();
        return FALSE;
    }
    return TRUE;
}

void CDrawBoard::DestroyDrawBoardGraphics()
{
    delete m_pBoard;
    m_pBoard = nullptr;
    delete m_pGraphics;
    m_pGraphics = nullptr;
}
