#include "GdiHandle.h"
#include "HandleMember.h"
#include "ThreadState.h"

IMPLEMENT_DYNCREATE(CDC, CObject)
IMPLEMENT_DYNAMIC(CClientDC, CDC)
IMPLEMENT_DYNAMIC(CWindowDC, CDC)
IMPLEMENT_DYNAMIC(CPaintDC, CDC)

namespace
{
// What is set has to hold for drawing and for measuring; the answer is that of the output context.
template<class Function, class... Arguments>
auto ApplyToBoth(const CDC& dc, Function function, Arguments... arguments)
{
    if (dc.m_hDC == nullptr)
        return function(dc.m_hAttribDC, arguments...);

    const auto result = function(dc.m_hDC, arguments...);
    if (dc.m_hAttribDC != nullptr && dc.m_hAttribDC != dc.m_hDC)
        function(dc.m_hAttribDC, arguments...);
    return result;
}

// The same for a function that writes the previous value through its last parameter.
template<class Value, class Function, class... Arguments>
Value ReplaceInBoth(const CDC& dc, Function function, Arguments... arguments)
{
    const auto replace = [=](HDC hDC)
    {
        Value previous(0, 0);
        function(hDC, arguments..., &previous);
        return previous;
    };
    return ApplyToBoth(dc, replace);
}

template<class Value, class Function>
Value Read(Function function, HDC hDC)
{
    Value value(0, 0);
    function(hDC, &value);
    return value;
}

CGdiObject* SelectInBoth(const CDC& dc, HGDIOBJ hObject)
{
    return CGdiObject::FromHandle(ApplyToBoth(dc, ::SelectObject, hObject));
}

template<class Object>
Object* CurrentObject(HDC hDC, UINT nType)
{
    return static_cast<Object*>(CGdiObject::FromHandle(::GetCurrentObject(hDC, nType)));
}

// Every second pixel: bits of a checkerboard, one word a row.
constexpr WORD kCheckerboard[] = {0x5555, 0xAAAA, 0x5555, 0xAAAA, 0x5555, 0xAAAA, 0x5555, 0xAAAA};

HBRUSH CreateCheckerboardBrush()
{
    const HBITMAP hBitmap = ::CreateBitmap(8, 8, 1, 1, kCheckerboard);
    const HBRUSH hBrush = ::CreatePatternBrush(hBitmap);
    ::DeleteObject(hBitmap);
    return hBrush;
}
} // namespace

CDC* DcTraits::Create(HDC hDC)
{
    CDC* const pDC = new CDC;
    pDC->m_hDC = hDC;
    pDC->m_hAttribDC = hDC;
    return pDC;
}

void DcTraits::Release(CDC* pDC)
{
    pDC->m_hDC = nullptr;
    pDC->m_hAttribDC = nullptr;
    delete pDC;
}

CDC::CDC() : m_hDC(nullptr), m_hAttribDC(nullptr) {}

CDC::~CDC()
{
    DeleteDC();
}

CDC::operator HDC() const
{
    return GetSafeHdc();
}

HDC CDC::GetSafeHdc() const
{
    return this == nullptr ? nullptr : m_hDC;
}

CWnd* CDC::GetWindow() const
{
    return CWnd::FromHandle(::WindowFromDC(m_hDC));
}

CDC* PASCAL CDC::FromHandle(HDC hDC)
{
    return CurrentModuleThreadState().deviceContexts.FromHandle(hDC);
}

void PASCAL CDC::DeleteTempMap()
{
    CurrentModuleThreadState().deviceContexts.DeleteTemporaries();
}

BOOL CDC::Attach(HDC hDC)
{
    if (!AttachHandle(CurrentModuleThreadState().deviceContexts, this, m_hDC, hDC))
        return FALSE;
    m_hAttribDC = hDC;
    return TRUE;
}

HDC CDC::Detach()
{
    m_hAttribDC = nullptr;
    return DetachHandle(CurrentModuleThreadState().deviceContexts, this, m_hDC);
}

void CDC::SetAttribDC(HDC hDC)
{
    m_hAttribDC = hDC;
}

void CDC::SetOutputDC(HDC hDC)
{
    m_hDC = hDC;
}

void CDC::ReleaseAttribDC()
{
    m_hAttribDC = nullptr;
}

void CDC::ReleaseOutputDC()
{
    m_hDC = nullptr;
}

BOOL CDC::CreateDC(LPCTSTR lpszDriverName, LPCTSTR lpszDeviceName, LPCTSTR lpszOutput, const void* lpInitData)
{
    return Attach(
        ::CreateDC(lpszDriverName, lpszDeviceName, lpszOutput, static_cast<const DEVMODE*>(lpInitData)));
}

BOOL CDC::CreateIC(LPCTSTR lpszDriverName, LPCTSTR lpszDeviceName, LPCTSTR lpszOutput, const void* lpInitData)
{
    return Attach(
        ::CreateIC(lpszDriverName, lpszDeviceName, lpszOutput, static_cast<const DEVMODE*>(lpInitData)));
}

BOOL CDC::CreateCompatibleDC(CDC* pDC)
{
    return Attach(::CreateCompatibleDC(pDC->GetSafeHdc()));
}

BOOL CDC::DeleteDC()
{
    if (m_hDC == nullptr)
        return FALSE;
    return ::DeleteDC(Detach());
}

int CDC::SaveDC()
{
    return ApplyToBoth(*this, ::SaveDC);
}

BOOL CDC::RestoreDC(int nSavedDC)
{
    return ApplyToBoth(*this, ::RestoreDC, nSavedDC);
}

int CDC::GetDeviceCaps(int nIndex) const
{
    return ::GetDeviceCaps(m_hAttribDC, nIndex);
}

BOOL CDC::ResetDC(const DEVMODE* lpDevMode)
{
    return ::ResetDC(m_hAttribDC, lpDevMode) != nullptr;
}

CGdiObject* CDC::SelectStockObject(int nIndex)
{
    return SelectInBoth(*this, ::GetStockObject(nIndex));
}

CPen* CDC::SelectObject(CPen* pPen)
{
    return static_cast<CPen*>(SelectInBoth(*this, pPen->GetSafeHandle()));
}

CBrush* CDC::SelectObject(CBrush* pBrush)
{
    return static_cast<CBrush*>(SelectInBoth(*this, pBrush->GetSafeHandle()));
}

CFont* CDC::SelectObject(CFont* pFont)
{
    return static_cast<CFont*>(SelectInBoth(*this, pFont->GetSafeHandle()));
}

CBitmap* CDC::SelectObject(CBitmap* pBitmap)
{
    // A bitmap can be selected into one device context at a time.
    return static_cast<CBitmap*>(CGdiObject::FromHandle(::SelectObject(m_hDC, pBitmap->GetSafeHandle())));
}

int CDC::SelectObject(CRgn* pRgn)
{
    return SelectClipRgn(pRgn);
}

CGdiObject* CDC::SelectObject(CGdiObject* pObject)
{
    return SelectInBoth(*this, pObject->GetSafeHandle());
}

CPen* CDC::GetCurrentPen() const
{
    return CurrentObject<CPen>(m_hAttribDC, OBJ_PEN);
}

CBrush* CDC::GetCurrentBrush() const
{
    return CurrentObject<CBrush>(m_hAttribDC, OBJ_BRUSH);
}

CFont* CDC::GetCurrentFont() const
{
    return CurrentObject<CFont>(m_hAttribDC, OBJ_FONT);
}

CBitmap* CDC::GetCurrentBitmap() const
{
    return CurrentObject<CBitmap>(m_hAttribDC, OBJ_BITMAP);
}

COLORREF CDC::SetTextColor(COLORREF crColor)
{
    return ApplyToBoth(*this, ::SetTextColor, crColor);
}

COLORREF CDC::GetTextColor() const
{
    return ::GetTextColor(m_hAttribDC);
}

COLORREF CDC::SetBkColor(COLORREF crColor)
{
    return ApplyToBoth(*this, ::SetBkColor, crColor);
}

COLORREF CDC::GetBkColor() const
{
    return ::GetBkColor(m_hAttribDC);
}

COLORREF CDC::SetDCBrushColor(COLORREF crColor)
{
    return ApplyToBoth(*this, ::SetDCBrushColor, crColor);
}

COLORREF CDC::GetDCBrushColor() const
{
    return ::GetDCBrushColor(m_hAttribDC);
}

COLORREF CDC::SetDCPenColor(COLORREF crColor)
{
    return ApplyToBoth(*this, ::SetDCPenColor, crColor);
}

COLORREF CDC::GetDCPenColor() const
{
    return ::GetDCPenColor(m_hAttribDC);
}

int CDC::SetBkMode(int nBkMode)
{
    return ApplyToBoth(*this, ::SetBkMode, nBkMode);
}

int CDC::GetBkMode() const
{
    return ::GetBkMode(m_hAttribDC);
}

UINT CDC::SetTextAlign(UINT nFlags)
{
    return ApplyToBoth(*this, ::SetTextAlign, nFlags);
}

UINT CDC::GetTextAlign() const
{
    return ::GetTextAlign(m_hAttribDC);
}

int CDC::SetTextCharacterExtra(int nCharExtra)
{
    return ApplyToBoth(*this, ::SetTextCharacterExtra, nCharExtra);
}

int CDC::GetTextCharacterExtra() const
{
    return ::GetTextCharacterExtra(m_hAttribDC);
}

int CDC::SetTextJustification(int nBreakExtra, int nBreakCount)
{
    return ApplyToBoth(*this, ::SetTextJustification, nBreakExtra, nBreakCount);
}

int CDC::SetROP2(int nDrawMode)
{
    return ApplyToBoth(*this, ::SetROP2, nDrawMode);
}

int CDC::GetROP2() const
{
    return ::GetROP2(m_hAttribDC);
}

int CDC::SetPolyFillMode(int nPolyFillMode)
{
    return ApplyToBoth(*this, ::SetPolyFillMode, nPolyFillMode);
}

int CDC::GetPolyFillMode() const
{
    return ::GetPolyFillMode(m_hAttribDC);
}

int CDC::SetStretchBltMode(int nStretchMode)
{
    return ApplyToBoth(*this, ::SetStretchBltMode, nStretchMode);
}

int CDC::GetStretchBltMode() const
{
    return ::GetStretchBltMode(m_hAttribDC);
}

CPoint CDC::SetBrushOrg(int x, int y)
{
    CPoint previous(0, 0);
    ::SetBrushOrgEx(m_hDC, x, y, &previous);
    return previous;
}

CPoint CDC::SetBrushOrg(POINT point)
{
    return SetBrushOrg(point.x, point.y);
}

CPoint CDC::GetBrushOrg() const
{
    return Read<CPoint>(::GetBrushOrgEx, m_hDC);
}

int CDC::SetGraphicsMode(int iMode)
{
    return ApplyToBoth(*this, ::SetGraphicsMode, iMode);
}

int CDC::GetGraphicsMode() const
{
    return ::GetGraphicsMode(m_hAttribDC);
}

BOOL CDC::SetWorldTransform(const XFORM& rXform)
{
    return ApplyToBoth(*this, ::SetWorldTransform, &rXform);
}

BOOL CDC::ModifyWorldTransform(const XFORM& rXform, DWORD iMode)
{
    return ApplyToBoth(*this, ::ModifyWorldTransform, &rXform, iMode);
}

BOOL CDC::GetWorldTransform(XFORM& rXform) const
{
    return ::GetWorldTransform(m_hAttribDC, &rXform);
}

DWORD CDC::SetLayout(DWORD dwLayout)
{
    return ApplyToBoth(*this, ::SetLayout, dwLayout);
}

DWORD CDC::GetLayout() const
{
    return ::GetLayout(m_hAttribDC);
}

int CDC::SetArcDirection(int nArcDirection)
{
    return ApplyToBoth(*this, ::SetArcDirection, nArcDirection);
}

int CDC::GetArcDirection() const
{
    return ::GetArcDirection(m_hAttribDC);
}

BOOL CDC::SetMiterLimit(float fMiterLimit)
{
    return ApplyToBoth(*this, ::SetMiterLimit, fMiterLimit, nullptr);
}

int CDC::SetMapMode(int nMapMode)
{
    return ApplyToBoth(*this, ::SetMapMode, nMapMode);
}

int CDC::GetMapMode() const
{
    return ::GetMapMode(m_hAttribDC);
}

CPoint CDC::SetViewportOrg(int x, int y)
{
    return ReplaceInBoth<CPoint>(*this, ::SetViewportOrgEx, x, y);
}

CPoint CDC::SetViewportOrg(POINT point)
{
    return SetViewportOrg(point.x, point.y);
}

CPoint CDC::GetViewportOrg() const
{
    return Read<CPoint>(::GetViewportOrgEx, m_hAttribDC);
}

CPoint CDC::OffsetViewportOrg(int nWidth, int nHeight)
{
    return ReplaceInBoth<CPoint>(*this, ::OffsetViewportOrgEx, nWidth, nHeight);
}

CSize CDC::SetViewportExt(int cx, int cy)
{
    return ReplaceInBoth<CSize>(*this, ::SetViewportExtEx, cx, cy);
}

CSize CDC::SetViewportExt(SIZE size)
{
    return SetViewportExt(size.cx, size.cy);
}

CSize CDC::GetViewportExt() const
{
    return Read<CSize>(::GetViewportExtEx, m_hAttribDC);
}

CSize CDC::ScaleViewportExt(int xNum, int xDenom, int yNum, int yDenom)
{
    return ReplaceInBoth<CSize>(*this, ::ScaleViewportExtEx, xNum, xDenom, yNum, yDenom);
}

CPoint CDC::SetWindowOrg(int x, int y)
{
    return ReplaceInBoth<CPoint>(*this, ::SetWindowOrgEx, x, y);
}

CPoint CDC::SetWindowOrg(POINT point)
{
    return SetWindowOrg(point.x, point.y);
}

CPoint CDC::GetWindowOrg() const
{
    return Read<CPoint>(::GetWindowOrgEx, m_hAttribDC);
}

CPoint CDC::OffsetWindowOrg(int nWidth, int nHeight)
{
    return ReplaceInBoth<CPoint>(*this, ::OffsetWindowOrgEx, nWidth, nHeight);
}

CSize CDC::SetWindowExt(int cx, int cy)
{
    return ReplaceInBoth<CSize>(*this, ::SetWindowExtEx, cx, cy);
}

CSize CDC::SetWindowExt(SIZE size)
{
    return SetWindowExt(size.cx, size.cy);
}

CSize CDC::GetWindowExt() const
{
    return Read<CSize>(::GetWindowExtEx, m_hAttribDC);
}

CSize CDC::ScaleWindowExt(int xNum, int xDenom, int yNum, int yDenom)
{
    return ReplaceInBoth<CSize>(*this, ::ScaleWindowExtEx, xNum, xDenom, yNum, yDenom);
}

void CDC::DPtoLP(LPPOINT lpPoints, int nCount) const
{
    ::DPtoLP(m_hAttribDC, lpPoints, nCount);
}

void CDC::DPtoLP(LPRECT lpRect) const
{
    POINT corners[] = {{lpRect->left, lpRect->top}, {lpRect->right, lpRect->bottom}};
    DPtoLP(corners, 2);
    *lpRect = {corners[0].x, corners[0].y, corners[1].x, corners[1].y};
}

void CDC::LPtoDP(LPPOINT lpPoints, int nCount) const
{
    ::LPtoDP(m_hAttribDC, lpPoints, nCount);
}

void CDC::LPtoDP(LPRECT lpRect) const
{
    POINT corners[] = {{lpRect->left, lpRect->top}, {lpRect->right, lpRect->bottom}};
    LPtoDP(corners, 2);
    *lpRect = {corners[0].x, corners[0].y, corners[1].x, corners[1].y};
}

// A size is the distance of two points, so the origins of the mapping play no part; it has no sign.
void CDC::DPtoLP(LPSIZE lpSize) const
{
    CRect rect(0, 0, lpSize->cx, lpSize->cy);
    DPtoLP(&rect);
    rect.NormalizeRect();
    *lpSize = rect.Size();
}

void CDC::LPtoDP(LPSIZE lpSize) const
{
    CRect rect(0, 0, lpSize->cx, lpSize->cy);
    LPtoDP(&rect);
    rect.NormalizeRect();
    *lpSize = rect.Size();
}

int CDC::GetClipBox(LPRECT lpRect) const
{
    return ::GetClipBox(m_hDC, lpRect);
}

int CDC::SelectClipRgn(CRgn* pRgn)
{
    return ApplyToBoth(*this, ::SelectClipRgn, HandleOf<HRGN>(pRgn));
}

int CDC::SelectClipRgn(CRgn* pRgn, int nMode)
{
    return ApplyToBoth(*this, ::ExtSelectClipRgn, HandleOf<HRGN>(pRgn), nMode);
}

int CDC::ExcludeClipRect(int x1, int y1, int x2, int y2)
{
    return ApplyToBoth(*this, ::ExcludeClipRect, x1, y1, x2, y2);
}

int CDC::ExcludeClipRect(LPCRECT lpRect)
{
    return ExcludeClipRect(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom);
}

int CDC::ExcludeUpdateRgn(CWnd* pWnd)
{
    return ::ExcludeUpdateRgn(m_hDC, pWnd->GetSafeHwnd());
}

int CDC::IntersectClipRect(int x1, int y1, int x2, int y2)
{
    return ApplyToBoth(*this, ::IntersectClipRect, x1, y1, x2, y2);
}

int CDC::IntersectClipRect(LPCRECT lpRect)
{
    return IntersectClipRect(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom);
}

int CDC::OffsetClipRgn(int x, int y)
{
    return ApplyToBoth(*this, ::OffsetClipRgn, x, y);
}

int CDC::OffsetClipRgn(SIZE size)
{
    return OffsetClipRgn(size.cx, size.cy);
}

BOOL CDC::PtVisible(int x, int y) const
{
    return ::PtVisible(m_hDC, x, y);
}

BOOL CDC::PtVisible(POINT point) const
{
    return PtVisible(point.x, point.y);
}

BOOL CDC::RectVisible(LPCRECT lpRect) const
{
    return ::RectVisible(m_hDC, lpRect);
}

CPoint CDC::MoveTo(int x, int y)
{
    return ReplaceInBoth<CPoint>(*this, ::MoveToEx, x, y);
}

CPoint CDC::MoveTo(POINT point)
{
    return MoveTo(point.x, point.y);
}

CPoint CDC::GetCurrentPosition() const
{
    return Read<CPoint>(::GetCurrentPositionEx, m_hAttribDC);
}

BOOL CDC::LineTo(int x, int y)
{
    // The attribute context follows, so that GetCurrentPosition tells the line's end.
    if (m_hAttribDC != nullptr && m_hAttribDC != m_hDC)
        ::MoveToEx(m_hAttribDC, x, y, nullptr);
    return ::LineTo(m_hDC, x, y);
}

BOOL CDC::LineTo(POINT point)
{
    return LineTo(point.x, point.y);
}

BOOL CDC::Polyline(LPPOINT lpPoints, int nCount)
{
    return ::Polyline(m_hDC, lpPoints, nCount);
}

BOOL CDC::PolylineTo(const POINT* lpPoints, int nCount)
{
    return ::PolylineTo(m_hDC, lpPoints, static_cast<DWORD>(nCount));
}

BOOL CDC::PolyPolyline(const POINT* lpPoints, const DWORD* lpPolyPoints, int nCount)
{
    return ::PolyPolyline(m_hDC, lpPoints, lpPolyPoints, static_cast<DWORD>(nCount));
}

BOOL CDC::PolyBezier(const POINT* lpPoints, int nCount)
{
    return ::PolyBezier(m_hDC, lpPoints, static_cast<DWORD>(nCount));
}

BOOL CDC::Arc(int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4)
{
    return ::Arc(m_hDC, x1, y1, x2, y2, x3, y3, x4, y4);
}

BOOL CDC::Arc(LPCRECT lpRect, POINT ptStart, POINT ptEnd)
{
    return Arc(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom, ptStart.x, ptStart.y, ptEnd.x,
               ptEnd.y);
}

BOOL CDC::ArcTo(int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4)
{
    return ::ArcTo(m_hDC, x1, y1, x2, y2, x3, y3, x4, y4);
}

BOOL CDC::ArcTo(LPCRECT lpRect, POINT ptStart, POINT ptEnd)
{
    return ArcTo(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom, ptStart.x, ptStart.y, ptEnd.x,
                 ptEnd.y);
}

BOOL CDC::AngleArc(int x, int y, int nRadius, float fStartAngle, float fSweepAngle)
{
    return ::AngleArc(m_hDC, x, y, static_cast<DWORD>(nRadius), fStartAngle, fSweepAngle);
}

BOOL CDC::Rectangle(int x1, int y1, int x2, int y2)
{
    return ::Rectangle(m_hDC, x1, y1, x2, y2);
}

BOOL CDC::Rectangle(LPCRECT lpRect)
{
    return Rectangle(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom);
}

BOOL CDC::RoundRect(int x1, int y1, int x2, int y2, int x3, int y3)
{
    return ::RoundRect(m_hDC, x1, y1, x2, y2, x3, y3);
}

BOOL CDC::RoundRect(LPCRECT lpRect, POINT point)
{
    return RoundRect(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom, point.x, point.y);
}

BOOL CDC::Ellipse(int x1, int y1, int x2, int y2)
{
    return ::Ellipse(m_hDC, x1, y1, x2, y2);
}

BOOL CDC::Ellipse(LPCRECT lpRect)
{
    return Ellipse(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom);
}

BOOL CDC::Pie(int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4)
{
    return ::Pie(m_hDC, x1, y1, x2, y2, x3, y3, x4, y4);
}

BOOL CDC::Pie(LPCRECT lpRect, POINT ptStart, POINT ptEnd)
{
    return Pie(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom, ptStart.x, ptStart.y, ptEnd.x,
               ptEnd.y);
}

BOOL CDC::Chord(int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4)
{
    return ::Chord(m_hDC, x1, y1, x2, y2, x3, y3, x4, y4);
}

BOOL CDC::Chord(LPCRECT lpRect, POINT ptStart, POINT ptEnd)
{
    return Chord(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom, ptStart.x, ptStart.y, ptEnd.x,
                 ptEnd.y);
}

BOOL CDC::Polygon(LPPOINT lpPoints, int nCount)
{
    return ::Polygon(m_hDC, lpPoints, nCount);
}

BOOL CDC::PolyPolygon(LPPOINT lpPoints, LPINT lpPolyCounts, int nCount)
{
    return ::PolyPolygon(m_hDC, lpPoints, lpPolyCounts, nCount);
}

void CDC::FillRect(LPCRECT lpRect, CBrush* pBrush)
{
    ::FillRect(m_hDC, lpRect, HandleOf<HBRUSH>(pBrush));
}

void CDC::FrameRect(LPCRECT lpRect, CBrush* pBrush)
{
    ::FrameRect(m_hDC, lpRect, HandleOf<HBRUSH>(pBrush));
}

void CDC::InvertRect(LPCRECT lpRect)
{
    ::InvertRect(m_hDC, lpRect);
}

void CDC::FillSolidRect(LPCRECT lpRect, COLORREF clr)
{
    ::SetBkColor(m_hDC, clr);
    ::ExtTextOut(m_hDC, 0, 0, ETO_OPAQUE, lpRect, nullptr, 0, nullptr);
}

void CDC::FillSolidRect(int x, int y, int cx, int cy, COLORREF clr)
{
    const CRect rect(x, y, x + cx, y + cy);
    FillSolidRect(&rect, clr);
}

void CDC::Draw3dRect(LPCRECT lpRect, COLORREF clrTopLeft, COLORREF clrBottomRight)
{
    Draw3dRect(lpRect->left, lpRect->top, lpRect->right - lpRect->left, lpRect->bottom - lpRect->top,
               clrTopLeft, clrBottomRight);
}

void CDC::Draw3dRect(int x, int y, int cx, int cy, COLORREF clrTopLeft, COLORREF clrBottomRight)
{
    FillSolidRect(x, y, cx - 1, 1, clrTopLeft);
    FillSolidRect(x, y, 1, cy - 1, clrTopLeft);
    FillSolidRect(x + cx - 1, y, 1, cy, clrBottomRight);
    FillSolidRect(x, y + cy - 1, cx, 1, clrBottomRight);
}

void CDC::DrawFocusRect(LPCRECT lpRect)
{
    ::DrawFocusRect(m_hDC, lpRect);
}

BOOL CDC::DrawEdge(LPRECT lpRect, UINT nEdge, UINT nFlags)
{
    return ::DrawEdge(m_hDC, lpRect, nEdge, nFlags);
}

BOOL CDC::DrawFrameControl(LPRECT lpRect, UINT nType, UINT nState)
{
    return ::DrawFrameControl(m_hDC, lpRect, nType, nState);
}

BOOL CDC::FillRgn(CRgn* pRgn, CBrush* pBrush)
{
    return ::FillRgn(m_hDC, HandleOf<HRGN>(pRgn), HandleOf<HBRUSH>(pBrush));
}

BOOL CDC::FrameRgn(CRgn* pRgn, CBrush* pBrush, int nWidth, int nHeight)
{
    return ::FrameRgn(m_hDC, HandleOf<HRGN>(pRgn), HandleOf<HBRUSH>(pBrush), nWidth, nHeight);
}

BOOL CDC::InvertRgn(CRgn* pRgn)
{
    return ::InvertRgn(m_hDC, HandleOf<HRGN>(pRgn));
}

BOOL CDC::PaintRgn(CRgn* pRgn)
{
    return ::PaintRgn(m_hDC, HandleOf<HRGN>(pRgn));
}

BOOL CDC::GradientFill(TRIVERTEX* pVertices, ULONG nVertices, void* pMesh, ULONG nMeshElements, DWORD dwMode)
{
    return ::GradientFill(m_hDC, pVertices, nVertices, pMesh, nMeshElements, dwMode);
}

CBrush* PASCAL CDC::GetHalftoneBrush()
{
    // Made once and kept for the life of the process: every caller gets the same brush.
    static const HBRUSH hBrush = CreateCheckerboardBrush();
    return CBrush::FromHandle(hBrush);
}

BOOL CDC::BeginPath()
{
    return ::BeginPath(m_hDC);
}

BOOL CDC::EndPath()
{
    return ::EndPath(m_hDC);
}

BOOL CDC::AbortPath()
{
    return ::AbortPath(m_hDC);
}

BOOL CDC::CloseFigure()
{
    return ::CloseFigure(m_hDC);
}

BOOL CDC::FillPath()
{
    return ::FillPath(m_hDC);
}

BOOL CDC::StrokePath()
{
    return ::StrokePath(m_hDC);
}

BOOL CDC::StrokeAndFillPath()
{
    return ::StrokeAndFillPath(m_hDC);
}

BOOL CDC::SelectClipPath(int nMode)
{
    return ::SelectClipPath(m_hDC, nMode);
}

CClientDC::CClientDC(CWnd* pWnd) : m_hWnd(pWnd->GetSafeHwnd())
{
    if (!Attach(::GetDC(m_hWnd)))
        AfxThrowResourceException();
}

CClientDC::~CClientDC()
{
    ::ReleaseDC(m_hWnd, Detach());
}

CWindowDC::CWindowDC(CWnd* pWnd) : m_hWnd(pWnd->GetSafeHwnd())
{
    if (!Attach(::GetWindowDC(m_hWnd)))
        AfxThrowResourceException();
}

CWindowDC::~CWindowDC()
{
    ::ReleaseDC(m_hWnd, Detach());
}

CPaintDC::CPaintDC(CWnd* pWnd) : m_hWnd(pWnd->GetSafeHwnd())
{
    if (!Attach(::BeginPaint(m_hWnd, &m_ps)))
        AfxThrowResourceException();
}

CPaintDC::~CPaintDC()
{
    ::EndPaint(m_hWnd, &m_ps);
    Detach();
}
