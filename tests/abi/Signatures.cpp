#include <vxdpi/VxDpi.h>

#include <type_traits>
#include <utility>
#include <vector>

// What the names of exported functions do not tell with every compiler: results, and where a class can be
// copied. The checks are made by the compiler.

namespace
{
template<class Function, class Expected>
constexpr bool kIs = std::is_same_v<Function, Expected>;

template<class Class>
constexpr bool kCopyable = std::is_copy_constructible_v<Class>&& std::is_copy_assignable_v<Class>;

template<class Class>
constexpr bool kAssignableOnly = !std::is_copy_constructible_v<Class> && std::is_copy_assignable_v<Class>;

template<class Class>
constexpr bool kNotCopied = !std::is_copy_constructible_v<Class> && !std::is_copy_assignable_v<Class>;

using ButtonList = std::vector<std::pair<CRealButton*, int>>;
} // namespace

static_assert(kIs<decltype(&VxSafeGetDpiForWindow), unsigned int (*)(HWND)>);
static_assert(kIs<decltype(&StartupGdiPlusByVxDpi), int (*)()>);
static_assert(kIs<decltype(&ShutdownGdiPlusByVxDpi), void (*)()>);
static_assert(kIs<decltype(&GetGdiPlusTokenFromVxDpi), int (*)(ULONG_PTR&)>);
static_assert(kIs<decltype(&SetGdiPlusTokenToVxDpi), int (*)(ULONG_PTR)>);
static_assert(kIs<decltype(&GetCurrentScreenWorkArea), int (*)(HWND, RECT&)>);
static_assert(kIs<decltype(&ConvertTo96DPIRect), void (*)(HWND, RECT&)>);
static_assert(kIs<decltype(&RestoreWindowPositionSafe), int (*)(CWnd*, CRect&, CRect&)>);
static_assert(kIs<decltype(&GetFontBasedDialogUnits), int (*)(HDC, SIZE&)>);
static_assert(kIs<decltype(&GetClientSizeForDpi), CRect (*)(CWnd*, UINT)>);
static_assert(
    kIs<decltype(&CreateFont_DPIAware), HFONT (*)(HWND, int, int, int, int, int, DWORD, DWORD, DWORD, DWORD,
                                                  DWORD, DWORD, DWORD, DWORD, LPCWSTR)>);
static_assert(kIs<decltype(&CreateFontIndirect_DPIAware), HFONT (*)(LOGFONTW*, HWND)>);
static_assert(kIs<decltype(&ScaleBitmap), HBITMAP (*)(HBITMAP, int, int)>);
static_assert(kIs<decltype(&StretchIcon), HICON (*)(HICON, int, int)>);
static_assert(kIs<decltype(CreateScaledIcon(UINT(), HICON())), HICON>);
static_assert(kIs<decltype(CreateScaledIcon(UINT(), UINT(), UINT())), HICON>);
static_assert(kIs<decltype(&LoadIconByTargetSizeFromFile), HICON (*)(LPCWSTR, int, int)>);
static_assert(kIs<decltype(&CreateScrollFrame), INT_PTR (*)(const int&, CDialog&, const ButtonList&, int)>);

static_assert(kCopyable<CGdiPlusInitializer> && kCopyable<CImageResource> && kCopyable<CDrawBoard>);
static_assert(kCopyable<LayoutInfo> && kCopyable<CDpiLayoutManager> && kCopyable<CScrollLayoutManager>);
static_assert(kCopyable<CScrollManager> && kCopyable<ResourceInfo>);
static_assert(kAssignableOnly<CDpiAwareRes> && kAssignableOnly<CDpiAwareIcon>);
static_assert(kAssignableOnly<CDpiAwarePng> && kAssignableOnly<CDpiAwarePngSplit>);
static_assert(kNotCopied<CFontDPIAware> && kNotCopied<CDpiAwareBitmap> && kNotCopied<CRealButton>);
static_assert(kNotCopied<CDpiAwareHeaderCtrl> && kNotCopied<CDPIAwareListCtrl> &&
              kNotCopied<CDPIAwareListCtrlW>);
