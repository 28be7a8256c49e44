#pragma once

// Bodies of atltypes.h, which includes this file.

// CSize

inline CSize::CSize() noexcept : tagSIZE{0, 0} {}

inline CSize::CSize(int initCX, int initCY) noexcept : tagSIZE{initCX, initCY} {}

inline CSize::CSize(SIZE initSize) noexcept : tagSIZE(initSize) {}

inline CSize::CSize(POINT initPt) noexcept : tagSIZE{initPt.x, initPt.y} {}

inline CSize::CSize(DWORD dwSize) noexcept
    : tagSIZE{static_cast<short>(LOWORD(dwSize)), static_cast<short>(HIWORD(dwSize))}
{
}

inline BOOL CSize::operator==(SIZE size) const noexcept
{
    return cx == size.cx && cy == size.cy;
}

inline BOOL CSize::operator!=(SIZE size) const noexcept
{
    return !(*this == size);
}

inline void CSize::operator+=(SIZE size) noexcept
{
    cx += size.cx;
    cy += size.cy;
}

inline void CSize::operator-=(SIZE size) noexcept
{
    cx -= size.cx;
    cy -= size.cy;
}

inline CSize CSize::operator+(SIZE size) const noexcept
{
    return CSize(cx + size.cx, cy + size.cy);
}

inline CSize CSize::operator-(SIZE size) const noexcept
{
    return CSize(cx - size.cx, cy - size.cy);
}

inline CSize CSize::operator-() const noexcept
{
    return CSize(-cx, -cy);
}

inline CPoint CSize::operator+(POINT point) const noexcept
{
    return CPoint(cx + point.x, cy + point.y);
}

inline CPoint CSize::operator-(POINT point) const noexcept
{
    return CPoint(cx - point.x, cy - point.y);
}

inline CRect CSize::operator+(const RECT* lpRect) const noexcept
{
    return CRect(lpRect) + *this;
}

inline CRect CSize::operator-(const RECT* lpRect) const noexcept
{
    return CRect(lpRect) - *this;
}

// CPoint

inline CPoint::CPoint() noexcept : tagPOINT{0, 0} {}

inline CPoint::CPoint(int initX, int initY) noexcept : tagPOINT{initX, initY} {}

inline CPoint::CPoint(POINT initPt) noexcept : tagPOINT(initPt) {}

inline CPoint::CPoint(SIZE initSize) noexcept : tagPOINT{initSize.cx, initSize.cy} {}

inline CPoint::CPoint(LPARAM dwPoint) noexcept
    : tagPOINT{static_cast<short>(LOWORD(dwPoint)), static_cast<short>(HIWORD(dwPoint))}
{
}

inline void CPoint::Offset(int xOffset, int yOffset) noexcept
{
    x += xOffset;
    y += yOffset;
}

inline void CPoint::Offset(POINT point) noexcept
{
    Offset(point.x, point.y);
}

inline void CPoint::Offset(SIZE size) noexcept
{
    Offset(size.cx, size.cy);
}

inline BOOL CPoint::operator==(POINT point) const noexcept
{
    return x == point.x && y == point.y;
}

inline BOOL CPoint::operator!=(POINT point) const noexcept
{
    return !(*this == point);
}

inline void CPoint::operator+=(SIZE size) noexcept
{
    Offset(size);
}

inline void CPoint::operator-=(SIZE size) noexcept
{
    Offset(-size.cx, -size.cy);
}

inline void CPoint::operator+=(POINT point) noexcept
{
    Offset(point);
}

inline void CPoint::operator-=(POINT point) noexcept
{
    Offset(-point.x, -point.y);
}

inline CPoint CPoint::operator+(SIZE size) const noexcept
{
    return CPoint(x + size.cx, y + size.cy);
}

inline CPoint CPoint::operator-(SIZE size) const noexcept
{
    return CPoint(x - size.cx, y - size.cy);
}

inline CPoint CPoint::operator-() const noexcept
{
    return CPoint(-x, -y);
}

inline CPoint CPoint::operator+(POINT point) const noexcept
{
    return CPoint(x + point.x, y + point.y);
}

inline CSize CPoint::operator-(POINT point) const noexcept
{
    return CSize(x - point.x, y - point.y);
}

inline CRect CPoint::operator+(const RECT* lpRect) const noexcept
{
    return CRect(lpRect) + *this;
}

inline CRect CPoint::operator-(const RECT* lpRect) const noexcept
{
    return CRect(lpRect) - *this;
}

// CRect

inline CRect::CRect() noexcept : tagRECT{0, 0, 0, 0} {}

inline CRect::CRect(int l, int t, int r, int b) noexcept : tagRECT{l, t, r, b} {}

inline CRect::CRect(const RECT& srcRect) noexcept : tagRECT(srcRect) {}

inline CRect::CRect(LPCRECT lpSrcRect) noexcept : tagRECT(*lpSrcRect) {}

inline CRect::CRect(POINT point, SIZE size) noexcept
    : tagRECT{point.x, point.y, point.x + size.cx, point.y + size.cy}
{
}

inline CRect::CRect(POINT topLeft, POINT bottomRight) noexcept
    : tagRECT{topLeft.x, topLeft.y, bottomRight.x, bottomRight.y}
{
}

inline int CRect::Width() const noexcept
{
    return right - left;
}

inline int CRect::Height() const noexcept
{
    return bottom - top;
}

inline CSize CRect::Size() const noexcept
{
    return CSize(Width(), Height());
}

// The corners are seen as points in place: a point and two neighbouring sides have the same layout.
inline CPoint& CRect::TopLeft() noexcept
{
    return *reinterpret_cast<CPoint*>(&left);
}

inline const CPoint& CRect::TopLeft() const noexcept
{
    return *reinterpret_cast<const CPoint*>(&left);
}

inline CPoint& CRect::BottomRight() noexcept
{
    return *reinterpret_cast<CPoint*>(&right);
}

inline const CPoint& CRect::BottomRight() const noexcept
{
    return *reinterpret_cast<const CPoint*>(&right);
}

inline CPoint CRect::CenterPoint() const noexcept
{
    return CPoint((left + right) / 2, (top + bottom) / 2);
}

inline CRect::operator LPRECT() noexcept
{
    return this;
}

inline CRect::operator LPCRECT() const noexcept
{
    return this;
}

inline BOOL CRect::IsRectEmpty() const noexcept
{
    return ::IsRectEmpty(this);
}

inline BOOL CRect::IsRectNull() const noexcept
{
    return left == 0 && top == 0 && right == 0 && bottom == 0;
}

inline BOOL CRect::PtInRect(POINT point) const noexcept
{
    return ::PtInRect(this, point);
}

inline BOOL CRect::EqualRect(LPCRECT lpRect) const noexcept
{
    return ::EqualRect(this, lpRect);
}

inline void CRect::SetRect(int x1, int y1, int x2, int y2) noexcept
{
    *this = CRect(x1, y1, x2, y2);
}

inline void CRect::SetRect(POINT topLeft, POINT bottomRight) noexcept
{
    *this = CRect(topLeft, bottomRight);
}

inline void CRect::SetRectEmpty() noexcept
{
    *this = CRect();
}

inline void CRect::CopyRect(LPCRECT lpSrcRect) noexcept
{
    *this = *lpSrcRect;
}

inline void CRect::NormalizeRect() noexcept
{
    if (left > right)
        SetRect(right, top, left, bottom);
    if (top > bottom)
        SetRect(left, bottom, right, top);
}

inline void CRect::InflateRect(int l, int t, int r, int b) noexcept
{
    SetRect(left - l, top - t, right + r, bottom + b);
}

inline void CRect::InflateRect(int x, int y) noexcept
{
    InflateRect(x, y, x, y);
}

inline void CRect::InflateRect(SIZE size) noexcept
{
    InflateRect(size.cx, size.cy);
}

inline void CRect::InflateRect(LPCRECT lpRect) noexcept
{
    InflateRect(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom);
}

inline void CRect::DeflateRect(int l, int t, int r, int b) noexcept
{
    InflateRect(-l, -t, -r, -b);
}

inline void CRect::DeflateRect(int x, int y) noexcept
{
    DeflateRect(x, y, x, y);
}

inline void CRect::DeflateRect(SIZE size) noexcept
{
    DeflateRect(size.cx, size.cy);
}

inline void CRect::DeflateRect(LPCRECT lpRect) noexcept
{
    DeflateRect(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom);
}

inline void CRect::OffsetRect(int x, int y) noexcept
{
    SetRect(left + x, top + y, right + x, bottom + y);
}

inline void CRect::OffsetRect(SIZE size) noexcept
{
    OffsetRect(size.cx, size.cy);
}

inline void CRect::OffsetRect(POINT point) noexcept
{
    OffsetRect(point.x, point.y);
}

inline void CRect::MoveToX(int x) noexcept
{
    OffsetRect(x - left, 0);
}

inline void CRect::MoveToY(int y) noexcept
{
    OffsetRect(0, y - top);
}

inline void CRect::MoveToXY(int x, int y) noexcept
{
    OffsetRect(x - left, y - top);
}

inline void CRect::MoveToXY(POINT point) noexcept
{
    MoveToXY(point.x, point.y);
}

inline BOOL CRect::IntersectRect(LPCRECT lpRect1, LPCRECT lpRect2) noexcept
{
    return ::IntersectRect(this, lpRect1, lpRect2);
}

inline BOOL CRect::UnionRect(LPCRECT lpRect1, LPCRECT lpRect2) noexcept
{
    return ::UnionRect(this, lpRect1, lpRect2);
}

inline BOOL CRect::SubtractRect(LPCRECT lpRectSrc1, LPCRECT lpRectSrc2) noexcept
{
    return ::SubtractRect(this, lpRectSrc1, lpRectSrc2);
}

inline void CRect::operator=(const RECT& srcRect) noexcept
{
    static_cast<tagRECT&>(*this) = srcRect;
}

inline BOOL CRect::operator==(const RECT& rect) const noexcept
{
    return EqualRect(&rect);
}

inline BOOL CRect::operator!=(const RECT& rect) const noexcept
{
    return !EqualRect(&rect);
}

inline void CRect::operator+=(POINT point) noexcept
{
    OffsetRect(point);
}

inline void CRect::operator+=(SIZE size) noexcept
{
    OffsetRect(size);
}

inline void CRect::operator+=(LPCRECT lpRect) noexcept
{
    InflateRect(lpRect);
}

inline void CRect::operator-=(POINT point) noexcept
{
    OffsetRect(-point.x, -point.y);
}

inline void CRect::operator-=(SIZE size) noexcept
{
    OffsetRect(-size.cx, -size.cy);
}

inline void CRect::operator-=(LPCRECT lpRect) noexcept
{
    DeflateRect(lpRect);
}

inline void CRect::operator&=(const RECT& rect) noexcept
{
    IntersectRect(this, &rect);
}

inline void CRect::operator|=(const RECT& rect) noexcept
{
    UnionRect(this, &rect);
}

inline CRect CRect::operator+(POINT point) const noexcept
{
    CRect result(*this);
    result += point;
    return result;
}

inline CRect CRect::operator-(POINT point) const noexcept
{
    CRect result(*this);
    result -= point;
    return result;
}

inline CRect CRect::operator+(LPCRECT lpRect) const noexcept
{
    CRect result(*this);
    result += lpRect;
    return result;
}

inline CRect CRect::operator+(SIZE size) const noexcept
{
    CRect result(*this);
    result += size;
    return result;
}

inline CRect CRect::operator-(SIZE size) const noexcept
{
    CRect result(*this);
    result -= size;
    return result;
}

inline CRect CRect::operator-(LPCRECT lpRect) const noexcept
{
    CRect result(*this);
    result -= lpRect;
    return result;
}

inline CRect CRect::operator&(const RECT& rect2) const noexcept
{
    CRect result(*this);
    result &= rect2;
    return result;
}

inline CRect CRect::operator|(const RECT& rect2) const noexcept
{
    CRect result(*this);
    result |= rect2;
    return result;
}
