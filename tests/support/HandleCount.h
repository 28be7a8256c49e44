#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <functional>
#include <initializer_list>
#include <iosfwd>
#include <string>
#include <utility>

enum class HandleKind : std::size_t
{
    Bitmap,
    MemoryDc,
    WindowDc, // also the screen's and information DCs
    MetafileDc,
    Metafile,
    Font,
    Brush,
    Pen,
    Region,
    Palette,
    OtherGdi,
    GdiTotal,
    Icon, // also cursors
    Menu,
    Window, // of the calling thread
    UserTotal,
    HeapBlock, // process heap: GDI+ objects, COM objects, streams, global memory
    CrtBlock,  // what new and malloc gave
    Count
};

// What the process holds at one moment.
//
// Where the system counts by itself (Windows), only the two totals and the heap blocks are known and the
// single kinds are 0. Where it does not (GetGuiResources answers 0), every kind is counted by asking each
// possible handle. The first use in a process proves that a deliberate leak of every kind is seen, and throws
// otherwise.
//
// Much is allocated on first use and cached, released window DCs too: compare after a warm-up, or use
// EXPECT_NO_LEAK, which does that.
class HandleCount
{
public:
    static HandleCount Now();

    // Whether this kind is counted on this system.
    static bool IsKnown(HandleKind kind);

    // The same without the heaps, for a comparison around code that may allocate memory.
    HandleCount WithoutHeaps() const;

    long operator[](HandleKind kind) const;
    long& operator[](HandleKind kind);

    bool operator==(const HandleCount& other) const;
    bool operator!=(const HandleCount& other) const;
    HandleCount operator-(const HandleCount& other) const;

private:
    std::array<long, static_cast<std::size_t>(HandleKind::Count)> m_counts{};
};

// Lists the kinds that are not 0, so a difference shows what grew.
std::ostream& operator<<(std::ostream& stream, const HandleCount& counts);

using HandleGrowth = std::initializer_list<std::pair<HandleKind, long>>;

// Whether the process holds exactly what it held at `before`, without regard to the heaps.
testing::AssertionResult SameHandlesAs(const HandleCount& before);

// Calls `work` once to fill caches, then counts around several calls.
// perCall is what each call is declared to leave behind, e.g. {{HandleKind::WindowDc, 1}}; the totals follow
// from it. Where every kind is counted, an icon keeps its bitmaps along: they have to be declared, too.
// Blocks in the heaps may not grow unless they are declared or something else is: a kept object drags memory
// along. One exact round of three is enough: a cache that grows once disturbs one round, a leak disturbs them
// all.
testing::AssertionResult LeavesPerCall(HandleGrowth perCall, const std::function<void()>& work);

// EXPECT_NO_LEAK([&] { ... });
#define EXPECT_NO_LEAK(...) EXPECT_TRUE(LeavesPerCall({}, __VA_ARGS__))
