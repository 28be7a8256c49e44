#include "support/HandleCount.h"

#include "support/GdiPlusSession.h"

#include <windows.h>

#include <malloc.h>

#include <memory>
#include <ostream>
#include <stdexcept>

namespace
{
constexpr std::size_t kKindCount = static_cast<std::size_t>(HandleKind::Count);

constexpr const char* kKindNames[kKindCount] = {
    "bitmaps", "memory DCs", "window DCs", "metafile DCs", "metafiles",   "fonts",
    "brushes", "pens",       "regions",    "palettes",     "other GDI",   "GDI total",
    "icons",   "menus",      "windows",    "USER total",   "heap blocks", "CRT blocks"};

constexpr ULONG_PTR kHandleEnd = 0x10000;
// No icon or menu has a lower handle.
constexpr ULONG_PTR kFirstUserHandle = 0x20;

constexpr int kRounds = 3;
constexpr int kCallsPerRound = 10;

bool IsGdiKind(HandleKind kind)
{
    return kind < HandleKind::GdiTotal;
}

bool IsUserKind(HandleKind kind)
{
    return kind > HandleKind::GdiTotal && kind < HandleKind::UserTotal;
}

bool IsHeapKind(HandleKind kind)
{
    return kind == HandleKind::HeapBlock || kind == HandleKind::CrtBlock;
}

DWORD SystemsCount(DWORD which)
{
    return ::GetGuiResources(::GetCurrentProcess(), which);
}

bool SystemCounts()
{
    return SystemsCount(GR_USEROBJECTS) != 0;
}

HandleKind KindOfGdiObject(DWORD type)
{
    switch (type)
    {
    case OBJ_BITMAP:
        return HandleKind::Bitmap;
    case OBJ_MEMDC:
        return HandleKind::MemoryDc;
    case OBJ_DC:
        return HandleKind::WindowDc;
    case OBJ_ENHMETADC:
    case OBJ_METADC:
        return HandleKind::MetafileDc;
    case OBJ_ENHMETAFILE:
    case OBJ_METAFILE:
        return HandleKind::Metafile;
    case OBJ_FONT:
        return HandleKind::Font;
    case OBJ_BRUSH:
        return HandleKind::Brush;
    case OBJ_PEN:
    case OBJ_EXTPEN:
        return HandleKind::Pen;
    case OBJ_REGION:
        return HandleKind::Region;
    case OBJ_PAL:
        return HandleKind::Palette;
    default:
        return HandleKind::OtherGdi;
    }
}

void CountGdiObjects(HandleCount& counts)
{
    for (ULONG_PTR handle = 1; handle < kHandleEnd; ++handle)
    {
        const DWORD type = ::GetObjectType(reinterpret_cast<HGDIOBJ>(handle));
        if (type == 0)
            continue;
        ++counts[KindOfGdiObject(type)];
        ++counts[HandleKind::GdiTotal];
    }
}

bool IsIcon(HICON icon)
{
    ICONINFO info = {};
    if (!::GetIconInfo(icon, &info))
        return false;
    ::DeleteObject(info.hbmColor);
    ::DeleteObject(info.hbmMask);
    return true;
}

BOOL CALLBACK CountWindow(HWND, LPARAM counter)
{
    ++*reinterpret_cast<long*>(counter);
    return TRUE;
}

// The system gives a thread with windows one of this class, and takes it away with the last one.
bool IsInputMethodWindow(HWND window)
{
    wchar_t className[8] = {};
    return ::GetClassNameW(window, className, 8) != 0 && ::lstrcmpiW(className, L"IME") == 0;
}

BOOL CALLBACK CountWindowWithChildren(HWND window, LPARAM counter)
{
    if (IsInputMethodWindow(window))
        return TRUE;
    CountWindow(window, counter);
    ::EnumChildWindows(window, CountWindow, counter);
    return TRUE;
}

long CountWindows()
{
    long count = 0;
    const LPARAM counter = reinterpret_cast<LPARAM>(&count);
    ::EnumThreadWindows(::GetCurrentThreadId(), CountWindowWithChildren, counter);

    HWND window = nullptr;
    while ((window = ::FindWindowExW(HWND_MESSAGE, window, nullptr, nullptr)) != nullptr)
    {
        if (::GetWindowThreadProcessId(window, nullptr) == ::GetCurrentThreadId())
            CountWindowWithChildren(window, counter);
    }
    return count;
}

void CountUserObjects(HandleCount& counts)
{
    // An icon or menu also answers to its handle's low word, and the odd numbers repeat the even ones.
    for (ULONG_PTR handle = kFirstUserHandle; handle < kHandleEnd; handle += 2)
    {
        if (IsIcon(reinterpret_cast<HICON>(handle)))
            ++counts[HandleKind::Icon];
        else if (::IsMenu(reinterpret_cast<HMENU>(handle)))
            ++counts[HandleKind::Menu];
    }
    counts[HandleKind::Window] = CountWindows();
    counts[HandleKind::UserTotal] =
        counts[HandleKind::Icon] + counts[HandleKind::Menu] + counts[HandleKind::Window];
}

long CountBusyBlocks(HANDLE heap)
{
    long count = 0;
    PROCESS_HEAP_ENTRY entry = {};
    ::HeapLock(heap);
    while (::HeapWalk(heap, &entry))
        count += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0;
    ::HeapUnlock(heap);
    return count;
}

HandleCount CountEverything()
{
    HandleCount counts;
    if (SystemCounts())
    {
        counts[HandleKind::GdiTotal] = static_cast<long>(SystemsCount(GR_GDIOBJECTS));
        counts[HandleKind::UserTotal] = static_cast<long>(SystemsCount(GR_USEROBJECTS));
    }
    else
    {
        CountGdiObjects(counts);
        CountUserObjects(counts);
    }
    counts[HandleKind::HeapBlock] = CountBusyBlocks(::GetProcessHeap());
    counts[HandleKind::CrtBlock] = CountBusyBlocks(reinterpret_cast<HANDLE>(::_get_heap_handle()));
    return counts;
}

// One thing of a kind, made and freed on demand.
struct DeliberateLeak
{
    HandleKind kind;
    void* (*make)();
    void (*free)(void*);
};

void FreeGdiObject(void* object)
{
    ::DeleteObject(static_cast<HGDIOBJ>(object));
}

void* MakeIcon()
{
    const BYTE bits[32] = {};
    return ::CreateIcon(nullptr, 16, 16, 1, 1, bits, bits);
}

void* MakeWindow()
{
    return ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
}

constexpr DeliberateLeak kDeliberateLeaks[] = {
    {HandleKind::Bitmap, []() -> void* { return ::CreateBitmap(2, 2, 1, 1, nullptr); }, FreeGdiObject},
    {HandleKind::MemoryDc, []() -> void* { return ::CreateCompatibleDC(nullptr); },
     [](void* dc) { ::DeleteDC(static_cast<HDC>(dc)); }},
    {HandleKind::WindowDc, []() -> void* { return ::CreateDCW(L"DISPLAY", nullptr, nullptr, nullptr); },
     [](void* dc) { ::DeleteDC(static_cast<HDC>(dc)); }},
    {HandleKind::MetafileDc,
     []() -> void* { return ::CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr); },
     [](void* dc) { ::DeleteEnhMetaFile(::CloseEnhMetaFile(static_cast<HDC>(dc))); }},
    {HandleKind::Font,
     []() -> void*
     {
         const LOGFONTW font = {};
         return ::CreateFontIndirectW(&font);
     },
     FreeGdiObject},
    {HandleKind::Brush, []() -> void* { return ::CreateSolidBrush(RGB(1, 2, 3)); }, FreeGdiObject},
    {HandleKind::Pen, []() -> void* { return ::CreatePen(PS_SOLID, 1, RGB(1, 2, 3)); }, FreeGdiObject},
    {HandleKind::Region, []() -> void* { return ::CreateRectRgn(0, 0, 1, 1); }, FreeGdiObject},
    {HandleKind::Icon, MakeIcon, [](void* icon) { ::DestroyIcon(static_cast<HICON>(icon)); }},
    {HandleKind::Menu, []() -> void* { return ::CreateMenu(); },
     [](void* menu) { ::DestroyMenu(static_cast<HMENU>(menu)); }},
    {HandleKind::Window, MakeWindow, [](void* window) { ::DestroyWindow(static_cast<HWND>(window)); }},
    {HandleKind::HeapBlock, []() -> void* { return ::HeapAlloc(::GetProcessHeap(), 0, 40); },
     [](void* block) { ::HeapFree(::GetProcessHeap(), 0, block); }},
    {HandleKind::HeapBlock, []() -> void* { return new Gdiplus::Bitmap(2, 2, PixelFormat32bppARGB); },
     [](void* bitmap) { delete static_cast<Gdiplus::Bitmap*>(bitmap); }},
    {HandleKind::CrtBlock, []() -> void* { return ::operator new(40); },
     [](void* block) { ::operator delete(block); }},
};

// Where a kind is not counted by itself, its total is.
HandleKind CountedAs(HandleKind kind)
{
    if (HandleCount::IsKnown(kind))
        return kind;
    return IsGdiKind(kind) ? HandleKind::GdiTotal : HandleKind::UserTotal;
}

void ProveLeakIsSeen(const DeliberateLeak& leak)
{
    const HandleKind kind = CountedAs(leak.kind);
    leak.free(leak.make());

    const HandleCount before = CountEverything();
    void* const leaked = leak.make();
    const HandleCount during = CountEverything();
    leak.free(leaked);
    const HandleCount after = CountEverything();

    if (leaked == nullptr || during[kind] <= before[kind] || after[kind] != before[kind])
    {
        throw std::runtime_error(std::string("the handle count does not see a leak of ") +
                                 kKindNames[static_cast<std::size_t>(leak.kind)]);
    }
}

bool ProveAllLeaksAreSeen()
{
    const GdiPlusSession gdiPlus;
    CountEverything();
    for (const DeliberateLeak& leak : kDeliberateLeaks)
        ProveLeakIsSeen(leak);
    return true;
}

HandleCount Total(HandleGrowth perCall, int calls)
{
    HandleCount total;
    for (const auto& [kind, growth] : perCall)
    {
        const long all = growth * calls;
        if (HandleCount::IsKnown(kind))
            total[kind] += all;
        if (IsGdiKind(kind))
            total[HandleKind::GdiTotal] += all;
        if (IsUserKind(kind))
            total[HandleKind::UserTotal] += all;
    }
    return total;
}

// Memory that comes with a declared object is not an undeclared leak.
void IgnoreUndeclaredHeaps(HandleGrowth perCall, HandleCount& growth)
{
    bool keepsObjects = false;
    bool keepsBlocks = false;
    for (const auto& [kind, count] : perCall)
        (IsHeapKind(kind) ? keepsBlocks : keepsObjects) = true;
    if (keepsObjects && !keepsBlocks)
        growth = growth.WithoutHeaps();
}
}

bool HandleCount::IsKnown(HandleKind kind)
{
    static const bool s_systemCounts = SystemCounts();
    return !s_systemCounts || !(IsGdiKind(kind) || IsUserKind(kind));
}

HandleCount HandleCount::Now()
{
    [[maybe_unused]] static const bool s_proven = ProveAllLeaksAreSeen();
    return CountEverything();
}

HandleCount HandleCount::WithoutHeaps() const
{
    HandleCount handles = *this;
    handles[HandleKind::HeapBlock] = 0;
    handles[HandleKind::CrtBlock] = 0;
    return handles;
}

long HandleCount::operator[](HandleKind kind) const
{
    return m_counts[static_cast<std::size_t>(kind)];
}

long& HandleCount::operator[](HandleKind kind)
{
    return m_counts[static_cast<std::size_t>(kind)];
}

bool HandleCount::operator==(const HandleCount& other) const
{
    return m_counts == other.m_counts;
}

bool HandleCount::operator!=(const HandleCount& other) const
{
    return !(*this == other);
}

HandleCount HandleCount::operator-(const HandleCount& other) const
{
    HandleCount difference;
    for (std::size_t i = 0; i < kKindCount; ++i)
        difference.m_counts[i] = m_counts[i] - other.m_counts[i];
    return difference;
}

std::ostream& operator<<(std::ostream& stream, const HandleCount& counts)
{
    const char* separator = "";
    for (std::size_t i = 0; i < kKindCount; ++i)
    {
        const long count = counts[static_cast<HandleKind>(i)];
        if (count == 0)
            continue;
        stream << separator << kKindNames[i] << ' ' << count;
        separator = ", ";
    }
    return *separator == '\0' ? stream << "nothing" : stream;
}

testing::AssertionResult SameHandlesAs(const HandleCount& before)
{
    const HandleCount growth = (HandleCount::Now() - before).WithoutHeaps();
    if (growth == HandleCount())
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << "grown: " << growth;
}

testing::AssertionResult LeavesPerCall(HandleGrowth perCall, const std::function<void()>& work)
{
    HandleCount::Now();
    work();

    const HandleCount expected = Total(perCall, kCallsPerRound);
    HandleCount growth;
    for (int round = 0; round < kRounds; ++round)
    {
        const HandleCount before = HandleCount::Now();
        for (int call = 0; call < kCallsPerRound; ++call)
            work();
        growth = HandleCount::Now() - before;
        IgnoreUndeclaredHeaps(perCall, growth);
        if (growth == expected)
            return testing::AssertionSuccess();
    }
    return testing::AssertionFailure()
           << kCallsPerRound << " calls left: " << growth << "; declared: " << expected;
}
