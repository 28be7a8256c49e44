#pragma once

#include <vxdpi/DrawBoard.h>

#include <cstddef>
#include <map>

// The fields of image resources and boards in their order, which is part of the library's binary interface.

struct ImageResourceFields
{
    const void* const* pVirtualTable;
    UINT nResID;
    UINT nDpi;
    CString strType;
    Gdiplus::Image* pImage;
};

struct VariantsFields
{
    const void* const* pVirtualTable;
    std::map<UINT, CImageResource> variants;
};

struct MappingFields
{
    const void* const* pVirtualTable;
    CRect rcLogical;
    CRect rcDevice;
};

struct BoardFields
{
    const void* const* pVirtualTable;
    MappingFields mapping;
    UINT nDpi;
    Gdiplus::Graphics* pGraphics;
    Gdiplus::Bitmap* pBoard;
    std::map<UINT, CDpiImageResource> images;
};

// Where destroyed objects had their pointers.
constexpr std::size_t kOffsetOfImage = 24;
constexpr std::size_t kOffsetOfGraphics = 56;

static_assert(sizeof(CImageResource) == 32, "virtual table, two numbers, string, pointer");
static_assert(sizeof(CoordinatesMapping) == 40, "virtual table, two rectangles");
static_assert(sizeof(CDrawBoard) == 72 + sizeof(std::map<UINT, CDpiImageResource>));
static_assert(sizeof(CImageResource) == sizeof(ImageResourceFields));
static_assert(sizeof(CDpiImageResource) == sizeof(VariantsFields));
static_assert(sizeof(CoordinatesMapping) == sizeof(MappingFields));
static_assert(sizeof(CDrawBoard) == sizeof(BoardFields));

inline ImageResourceFields& FieldsOf(CImageResource& image)
{
    return reinterpret_cast<ImageResourceFields&>(image);
}

inline VariantsFields& FieldsOf(CDpiImageResource& variants)
{
    return reinterpret_cast<VariantsFields&>(variants);
}

inline BoardFields& FieldsOf(CDrawBoard& board)
{
    return reinterpret_cast<BoardFields&>(board);
}

// Takes what it shares with another one away from a copy at the end of a scope, so that both can be
// destroyed.
class ForgetImage
{
public:
    explicit ForgetImage(CImageResource& copy) : m_copy(copy) {}
    ~ForgetImage() { FieldsOf(m_copy).pImage = nullptr; }

    ForgetImage(const ForgetImage&) = delete;
    ForgetImage& operator=(const ForgetImage&) = delete;

private:
    CImageResource& m_copy;
};

class ForgetBoard
{
public:
    explicit ForgetBoard(CDrawBoard& copy) : m_copy(copy) {}

    ~ForgetBoard()
    {
        FieldsOf(m_copy).pGraphics = nullptr;
        FieldsOf(m_copy).pBoard = nullptr;
    }

    ForgetBoard(const ForgetBoard&) = delete;
    ForgetBoard& operator=(const ForgetBoard&) = delete;

private:
    CDrawBoard& m_copy;
};
