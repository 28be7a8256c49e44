#include <vxdpi/VxDpi.h>

#include "abi/FieldAccess.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <map>
#include <mutex>
#include <vector>

// The fields of every exported class and record, in their order.

struct ResourceInfoTag
{
    friend constexpr auto FieldsOf(ResourceInfoTag);
};
template struct Reveal<ResourceInfoTag, &ResourceInfo::nDpi, &ResourceInfo::nResourceId,
                       &ResourceInfo::values>;

struct RegistryTag
{
    friend constexpr auto FieldsOf(RegistryTag);
};
template struct Reveal<RegistryTag, &CDpiAwareRes::m_nCurrentDpi, &CDpiAwareRes::m_nReserved,
                       &CDpiAwareRes::m_pMutex, &CDpiAwareRes::m_pEntries>;

struct PngTag
{
    friend constexpr auto FieldsOf(PngTag);
};
template struct Reveal<PngTag, &CDpiAwarePng::m_resources>;

struct PngSplitTag
{
    friend constexpr auto FieldsOf(PngSplitTag);
};
template struct Reveal<PngSplitTag, &CDpiAwarePngSplit::m_resources>;

struct GdiPlusTag
{
    friend constexpr auto FieldsOf(GdiPlusTag);
};
template struct Reveal<GdiPlusTag, &CGdiPlusInitializer::m_token>;

struct FontTag
{
    friend constexpr auto FieldsOf(FontTag);
};
template struct Reveal<FontTag, &CFontDPIAware::m_nBaseDpi, &CFontDPIAware::m_nBaseHeight,
                       &CFontDPIAware::m_nBaseWidth, &CFontDPIAware::m_bInitialised>;

struct BitmapTag
{
    friend constexpr auto FieldsOf(BitmapTag);
};
template struct Reveal<BitmapTag, &CDpiAwareBitmap::m_nColorMapFlags, &CDpiAwareBitmap::m_pColorMap,
                       &CDpiAwareBitmap::m_nColorMapSize, &CDpiAwareBitmap::m_nCurrentDpi,
                       &CDpiAwareBitmap::m_nResourceId, &CDpiAwareBitmap::m_resources,
                       &CDpiAwareBitmap::m_pSource, &CDpiAwareBitmap::m_sizeBase,
                       &CDpiAwareBitmap::m_sizeCurrent>;

struct IconTag
{
    friend constexpr auto FieldsOf(IconTag);
};
template struct Reveal<IconTag, &CDpiAwareIcon::m_nLargestSize, &CDpiAwareIcon::m_nSmallestSize,
                       &CDpiAwareIcon::m_pCurrentSizes, &CDpiAwareIcon::m_resources>;

struct ImageTag
{
    friend constexpr auto FieldsOf(ImageTag);
};
template struct Reveal<ImageTag, &CImageResource::m_nResID, &CImageResource::m_nDpi,
                       &CImageResource::m_strType, &CImageResource::m_pImage>;

struct ImageVariantsTag
{
    friend constexpr auto FieldsOf(ImageVariantsTag);
};
template struct Reveal<ImageVariantsTag, &CDpiImageResource::m_variants>;

struct MappingTag
{
    friend constexpr auto FieldsOf(MappingTag);
};
template struct Reveal<MappingTag, &CoordinatesMapping::m_rcLogical, &CoordinatesMapping::m_rcDevice>;

struct BoardTag
{
    friend constexpr auto FieldsOf(BoardTag);
};
template struct Reveal<BoardTag, &CDrawBoard::m_mapping, &CDrawBoard::m_nDpi, &CDrawBoard::m_pGraphics,
                       &CDrawBoard::m_pBoard, &CDrawBoard::m_images>;

struct LayoutManagerTag
{
    friend constexpr auto FieldsOf(LayoutManagerTag);
};
template struct Reveal<LayoutManagerTag, &CDpiLayoutManager::m_pParent, &CDpiLayoutManager::m_pLayouts,
                       &CDpiLayoutManager::m_scale, &CDpiLayoutManager::m_dpi,
                       &CDpiLayoutManager::m_bNeedCapture>;

struct ScrollLayoutTag
{
    friend constexpr auto FieldsOf(ScrollLayoutTag);
};
template struct Reveal<ScrollLayoutTag, &CScrollLayoutManager::m_clientSize96>;

struct HeaderTag
{
    friend constexpr auto FieldsOf(HeaderTag);
};
template struct Reveal<HeaderTag, &CDpiAwareHeaderCtrl::m_dragColumn, &CDpiAwareHeaderCtrl::m_lastPoint,
                       &CDpiAwareHeaderCtrl::m_parentList>;

struct ListTag
{
    friend constexpr auto FieldsOf(ListTag);
};
template struct Reveal<ListTag, &CDPIAwareListCtrl::m_columnWidths96, &CDPIAwareListCtrl::m_header>;

struct RealButtonTag
{
    friend constexpr auto FieldsOf(RealButtonTag);
};
template struct Reveal<RealButtonTag, &CRealButton::m_pProxy>;

struct ScrollTag
{
    friend constexpr auto FieldsOf(ScrollTag);
};
template struct Reveal<ScrollTag, &CScrollManager::m_contentWidth, &CScrollManager::m_contentHeight,
                       &CScrollManager::m_hPos, &CScrollManager::m_vPos, &CScrollManager::m_hPage,
                       &CScrollManager::m_vPage, &CScrollManager::m_lineStep, &CScrollManager::m_hMax,
                       &CScrollManager::m_vMax, &CScrollManager::m_reapplyOffset, &CScrollManager::m_dpi,
                       &CScrollManager::m_pWnd, &CScrollManager::m_modal, &CScrollManager::m_pHScrollBar,
                       &CScrollManager::m_pVScrollBar>;

namespace
{
// --- mirrors

struct ResourceInfoMirror
{
    virtual ~ResourceInfoMirror() = default;
    UINT dpi;
    UINT resourceId;
    std::vector<UINT> values;
};

struct RegistryMirror
{
    UINT currentDpi;
    UINT reserved;
    std::mutex* pMutex;
    std::vector<ResourceInfo*>* pEntries;
};

struct PictureMirror
{
    CDpiAwareRes resources;
};

struct GdiPlusMirror
{
    virtual ~GdiPlusMirror() = default;
    ULONG_PTR token;
};

struct FontMirror : CFont
{
    UINT baseDpi;
    LONG baseHeight;
    LONG baseWidth;
    BOOL bInitialised;
};

struct BitmapMirror : CBitmap
{
    UINT colorMapFlags;
    COLORMAP* pColorMap;
    int colorMapSize;
    UINT currentDpi;
    UINT resourceId;
    CDpiAwareRes resources;
    CBitmap* pSource;
    CSize sizeBase;
    CSize sizeCurrent;
};

struct IconMirror
{
    UINT largestSize;
    UINT smallestSize;
    std::vector<UINT>* pCurrentSizes;
    CDpiAwareRes resources;
};

struct ImageMirror
{
    virtual ~ImageMirror() = default;
    UINT resourceId;
    UINT dpi;
    CString type;
    Gdiplus::Image* pImage;
};

struct ImageVariantsMirror
{
    virtual ~ImageVariantsMirror() = default;
    std::map<UINT, CImageResource> variants;
};

struct MappingMirror
{
    virtual ~MappingMirror() = default;
    CRect rcLogical;
    CRect rcDevice;
};

struct BoardMirror
{
    virtual ~BoardMirror() = default;
    CoordinatesMapping mapping;
    UINT dpi;
    Gdiplus::Graphics* pGraphics;
    Gdiplus::Bitmap* pBoard;
    std::map<UINT, CDpiImageResource> images;
};

struct LayoutManagerMirror
{
    virtual ~LayoutManagerMirror() = default;
    CWnd* pParent;
    std::map<HWND, LayoutInfo>* pLayouts;
    float scale;
    int dpi;
    int bNeedCapture;
};

struct ScrollLayoutMirror : CDpiLayoutManager
{
    CSize clientSize96;
};

struct HeaderMirror : CHeaderCtrl
{
    int dragColumn;
    CPoint lastPoint;
    CListCtrl* pParentList;
};

struct ListMirror : CListCtrl
{
    std::map<int, int> columnWidths96;
    CDpiAwareHeaderCtrl header;
};

struct RealButtonMirror : CButton
{
    CButtonProxy* pProxy;
};

struct ScrollMirror
{
    int contentWidth;
    int contentHeight;
    int hPos;
    int vPos;
    int hPage;
    int vPage;
    int lineStep;
    int hMax;
    int vMax;
    int reapplyOffset;
    UINT_PTR dpi;
    CWnd* pWnd;
    CScrollManager::Modal modal;
    CScrollBar* pHScrollBar;
    CScrollBar* pVScrollBar;
};
} // namespace

static_assert(sizeof(CDPIAwareListCtrlW) == sizeof(CDPIAwareListCtrl), "no fields of its own");
static_assert(sizeof(CScrollManager::Modal) == 4 && CScrollManager::ScrollBarControls == 0 &&
              CScrollManager::WindowScrollBars == 1);

// What holds with every compiler for 64-bit Windows, because neither the framework nor the standard library
// has a say.
static_assert(sizeof(CDpiAwareIcon) == 40 && sizeof(CDpiAwarePngSplit) == 24);
static_assert(sizeof(CImageResource) == 32 && sizeof(CoordinatesMapping) == 40 &&
              sizeof(CScrollManager) == 80);

TEST(ClassFields, OfTheRegistryAndItsEntries)
{
    using Info = ResourceInfoMirror;
    ExpectSameFields(FieldsOf(ResourceInfoTag()), std::tuple(&Info::dpi, &Info::resourceId, &Info::values));
    using Registry = RegistryMirror;
    ExpectSameFields(FieldsOf(RegistryTag()), std::tuple(&Registry::currentDpi, &Registry::reserved,
                                                         &Registry::pMutex, &Registry::pEntries));
}

TEST(ClassFields, OfPngImagesAndStripsAreARegistry)
{
    ExpectSameFields(FieldsOf(PngTag()), std::tuple(&PictureMirror::resources));
    ExpectSameFields(FieldsOf(PngSplitTag()), std::tuple(&PictureMirror::resources));
}

TEST(ClassFields, OfTheGdiPlusInitializer)
{
    ExpectSameFields(FieldsOf(GdiPlusTag()), std::tuple(&GdiPlusMirror::token));
}

TEST(ClassFields, OfAFont)
{
    using Font = FontMirror;
    ExpectSameFields(FieldsOf(FontTag()),
                     std::tuple(&Font::baseDpi, &Font::baseHeight, &Font::baseWidth, &Font::bInitialised));
}

TEST(ClassFields, OfABitmap)
{
    using Bitmap = BitmapMirror;
    ExpectSameFields(FieldsOf(BitmapTag()),
                     std::tuple(&Bitmap::colorMapFlags, &Bitmap::pColorMap, &Bitmap::colorMapSize,
                                &Bitmap::currentDpi, &Bitmap::resourceId, &Bitmap::resources,
                                &Bitmap::pSource, &Bitmap::sizeBase, &Bitmap::sizeCurrent));
}

TEST(ClassFields, OfAnIconSet)
{
    using Icon = IconMirror;
    ExpectSameFields(FieldsOf(IconTag()), std::tuple(&Icon::largestSize, &Icon::smallestSize,
                                                     &Icon::pCurrentSizes, &Icon::resources));
}

TEST(ClassFields, OfImageResources)
{
    using Image = ImageMirror;
    ExpectSameFields(FieldsOf(ImageTag()),
                     std::tuple(&Image::resourceId, &Image::dpi, &Image::type, &Image::pImage));
    ExpectSameFields(FieldsOf(ImageVariantsTag()), std::tuple(&ImageVariantsMirror::variants));
}

TEST(ClassFields, OfADrawBoardAndItsMapping)
{
    ExpectSameFields(FieldsOf(MappingTag()), std::tuple(&MappingMirror::rcLogical, &MappingMirror::rcDevice));
    using Board = BoardMirror;
    ExpectSameFields(FieldsOf(BoardTag()), std::tuple(&Board::mapping, &Board::dpi, &Board::pGraphics,
                                                      &Board::pBoard, &Board::images));
}

TEST(ClassFields, OfLayoutManagers)
{
    using Manager = LayoutManagerMirror;
    ExpectSameFields(FieldsOf(LayoutManagerTag()),
                     std::tuple(&Manager::pParent, &Manager::pLayouts, &Manager::scale, &Manager::dpi,
                                &Manager::bNeedCapture));
    ExpectSameFields(FieldsOf(ScrollLayoutTag()), std::tuple(&ScrollLayoutMirror::clientSize96));
}

TEST(ClassFields, OfAListAndItsHeader)
{
    using Header = HeaderMirror;
    ExpectSameFields(FieldsOf(HeaderTag()),
                     std::tuple(&Header::dragColumn, &Header::lastPoint, &Header::pParentList));
    ExpectSameFields(FieldsOf(ListTag()), std::tuple(&ListMirror::columnWidths96, &ListMirror::header));
}

TEST(ClassFields, OfARealButton)
{
    ExpectSameFields(FieldsOf(RealButtonTag()), std::tuple(&RealButtonMirror::pProxy));
}

TEST(ClassFields, OfAScrollManager)
{
    using Scroll = ScrollMirror;
    ExpectSameFields(FieldsOf(ScrollTag()),
                     std::tuple(&Scroll::contentWidth, &Scroll::contentHeight, &Scroll::hPos, &Scroll::vPos,
                                &Scroll::hPage, &Scroll::vPage, &Scroll::lineStep, &Scroll::hMax,
                                &Scroll::vMax, &Scroll::reapplyOffset, &Scroll::dpi, &Scroll::pWnd,
                                &Scroll::modal, &Scroll::pHScrollBar, &Scroll::pVScrollBar));
}
