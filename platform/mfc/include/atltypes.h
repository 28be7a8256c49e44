#pragma once

#include <windows.h>

// Points, sizes and rectangles: the platform's structures with operations, nothing added to their layout.

class CPoint;
class CSize;
class CRect;

/// Width and height, or a distance.
class CSize : public tagSIZE
{
public:
    CSize() noexcept;
    CSize(int initCX, int initCY) noexcept;
    CSize(SIZE initSize) noexcept;
    CSize(POINT initPt) noexcept;
    CSize(DWORD dwSize) noexcept; // low word width, high word height

    BOOL operator==(SIZE size) const noexcept;
    BOOL operator!=(SIZE size) const noexcept;
    void operator+=(SIZE size) noexcept;
    void operator-=(SIZE size) noexcept;

    CSize operator+(SIZE size) const noexcept;
    CSize operator-(SIZE size) const noexcept;
    CSize operator-() const noexcept;
    CPoint operator+(POINT point) const noexcept;
    CPoint operator-(POINT point) const noexcept;
    CRect operator+(const RECT* lpRect) const noexcept;
    CRect operator-(const RECT* lpRect) const noexcept;
};

/// A position.
class CPoint : public tagPOINT
{
public:
    CPoint() noexcept;
    CPoint(int initX, int initY) noexcept;
    CPoint(POINT initPt) noexcept;
    CPoint(SIZE initSize) noexcept;
    CPoint(LPARAM dwPoint) noexcept; // low word x, high word y, both signed

    void Offset(int xOffset, int yOffset) noexcept;
    void Offset(POINT point) noexcept;
    void Offset(SIZE size) noexcept;

    BOOL operator==(POINT point) const noexcept;
    BOOL operator!=(POINT point) const noexcept;
    void operator+=(SIZE size) noexcept;
    void operator-=(SIZE size) noexcept;
    void operator+=(POINT point) noexcept;
    void operator-=(POINT point) noexcept;

    CPoint operator+(SIZE size) const noexcept;
    CPoint operator-(SIZE size) const noexcept;
    CPoint operator-() const noexcept;
    CPoint operator+(POINT point) const noexcept;
    CSize operator-(POINT point) const noexcept;
    CRect operator+(const RECT* lpRect) const noexcept;
    CRect operator-(const RECT* lpRect) const noexcept;
};

/// A rectangle; its right and bottom edges lie outside. No operation normalizes but NormalizeRect.
class CRect : public tagRECT
{
public:
    CRect() noexcept; // all four 0
    CRect(int l, int t, int r, int b) noexcept;
    CRect(const RECT& srcRect) noexcept;
    CRect(LPCRECT lpSrcRect) noexcept;
    CRect(POINT point, SIZE size) noexcept;
    CRect(POINT topLeft, POINT bottomRight) noexcept;

    int Width() const noexcept;
    int Height() const noexcept;
    CSize Size() const noexcept;
    CPoint& TopLeft() noexcept;
    const CPoint& TopLeft() const noexcept;
    CPoint& BottomRight() noexcept;
    const CPoint& BottomRight() const noexcept;
    CPoint CenterPoint() const noexcept;

    operator LPRECT() noexcept;
    operator LPCRECT() const noexcept;

    BOOL IsRectEmpty() const noexcept; // no width or no height, also a negative one
    BOOL IsRectNull() const noexcept;
    BOOL PtInRect(POINT point) const noexcept;
    BOOL EqualRect(LPCRECT lpRect) const noexcept;

    void SetRect(int x1, int y1, int x2, int y2) noexcept;
    void SetRect(POINT topLeft, POINT bottomRight) noexcept;
    void SetRectEmpty() noexcept;
    void CopyRect(LPCRECT lpSrcRect) noexcept;
    void NormalizeRect() noexcept;

    void InflateRect(int x, int y) noexcept;
    void InflateRect(SIZE size) noexcept;
    void InflateRect(LPCRECT lpRect) noexcept;
    void InflateRect(int l, int t, int r, int b) noexcept;
    void DeflateRect(int x, int y) noexcept;
    void DeflateRect(SIZE size) noexcept;
    void DeflateRect(LPCRECT lpRect) noexcept;
    void DeflateRect(int l, int t, int r, int b) noexcept;

    void OffsetRect(int x, int y) noexcept;
    void OffsetRect(SIZE size) noexcept;
    void OffsetRect(POINT point) noexcept;
    void MoveToX(int x) noexcept;
    void MoveToY(int y) noexcept;
    void MoveToXY(int x, int y) noexcept;
    void MoveToXY(POINT point) noexcept;

    BOOL IntersectRect(LPCRECT lpRect1, LPCRECT lpRect2) noexcept;
    BOOL UnionRect(LPCRECT lpRect1, LPCRECT lpRect2) noexcept;
    BOOL SubtractRect(LPCRECT lpRectSrc1, LPCRECT lpRectSrc2) noexcept;

    CRect(const CRect&) = default;
    CRect& operator=(const CRect&) = default;
    void operator=(const RECT& srcRect) noexcept;
    BOOL operator==(const RECT& rect) const noexcept;
    BOOL operator!=(const RECT& rect) const noexcept;
    void operator+=(POINT point) noexcept;
    void operator+=(SIZE size) noexcept;
    void operator+=(LPCRECT lpRect) noexcept; // inflates
    void operator-=(POINT point) noexcept;
    void operator-=(SIZE size) noexcept;
    void operator-=(LPCRECT lpRect) noexcept; // deflates
    void operator&=(const RECT& rect) noexcept;
    void operator|=(const RECT& rect) noexcept;

    CRect operator+(POINT point) const noexcept;
    CRect operator-(POINT point) const noexcept;
    CRect operator+(LPCRECT lpRect) const noexcept;
    CRect operator+(SIZE size) const noexcept;
    CRect operator-(SIZE size) const noexcept;
    CRect operator-(LPCRECT lpRect) const noexcept;
    CRect operator&(const RECT& rect2) const noexcept;
    CRect operator|(const RECT& rect2) const noexcept;
};

#include <vxmfc/GeometryInline.h>
