#include <drawboard/SceneMapping.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <ostream>
#include <random>
#include <vector>

static bool operator==(const RECT& a, const RECT& b)
{
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

static std::ostream& operator<<(std::ostream& stream, const RECT& rect)
{
    return stream << "(" << rect.left << ", " << rect.top << ", " << rect.right << ", " << rect.bottom << ")";
}

namespace
{
constexpr LONG kLargest = 2147483647;
constexpr LONG kSmallest = -kLargest - 1;

RECT Area(LONG width, LONG height)
{
    return {0, 0, width, height};
}

// Slow and obvious, one operation at a time in 64 bits: whole numbers wrap to 32 bits after each step, and
// floating-point results are worked out in double precision, which holds them exactly or rounds a quotient to
// the same single-precision number, and then rounded to single precision.
class ModelAxis
{
public:
    ModelAxis(std::int64_t logicalStart, std::int64_t logicalEnd, std::int64_t deviceStart,
              std::int64_t deviceEnd)
        : m_logicalStart(logicalStart), m_logical(Wrapped(logicalEnd - logicalStart)),
          m_device(Wrapped(deviceEnd - deviceStart))
    {
    }

    double Scale() const { return m_logical == 0 ? 1.0 : Single(Single(m_device) / Single(m_logical)); }

    bool IsEmpty() const { return m_logical == 0; }

    LONG Mapped(std::int64_t position, double scale) const
    {
        const std::int64_t offset = Wrapped(m_device - Product(m_logical, scale)) / 2;
        return static_cast<LONG>(Wrapped(offset + Product(Wrapped(position - m_logicalStart), scale)));
    }

private:
    template<class Number>
    static double Single(Number value)
    {
        return static_cast<double>(static_cast<float>(value));
    }

    static std::int64_t Wrapped(std::int64_t value)
    {
        constexpr std::int64_t kTwoTo32 = std::int64_t{1} << 32;
        const std::int64_t low = ((value % kTwoTo32) + kTwoTo32) % kTwoTo32;
        return low > kLargest ? low - kTwoTo32 : low;
    }

    static std::int64_t Product(std::int64_t length, double scale)
    {
        const double whole = std::trunc(Single(Single(length) * scale));
        return whole < kSmallest || whole > kLargest ? kSmallest : static_cast<std::int64_t>(whole);
    }

    std::int64_t m_logicalStart;
    std::int64_t m_logical;
    std::int64_t m_device;
};

RECT Model(const RECT& rect, const RECT& logical, const RECT& device)
{
    const ModelAxis x(logical.left, logical.right, device.left, device.right);
    const ModelAxis y(logical.top, logical.bottom, device.top, device.bottom);
    if (x.IsEmpty() && y.IsEmpty())
        return rect;
    const double scale = x.Scale() < y.Scale() ? x.Scale() : y.Scale();
    return {x.Mapped(rect.left, scale), y.Mapped(rect.top, scale), x.Mapped(rect.right, scale),
            y.Mapped(rect.bottom, scale)};
}

// Numbers of every magnitude and sign, with the ends of the range among them.
class AnyNumber
{
public:
    LONG operator()(std::mt19937& random)
    {
        static constexpr LONG kEnds[] = {kSmallest, kSmallest + 1, -1, 0, 1, kLargest - 1, kLargest};
        const int choice = m_choice(random);
        if (choice < 7)
            return kEnds[choice];
        return static_cast<LONG>(random()) >> m_shift(random);
    }

private:
    std::uniform_int_distribution<int> m_choice{0, 39};
    std::uniform_int_distribution<int> m_shift{0, 31};
};

RECT AnyRect(AnyNumber& anyNumber, std::mt19937& random)
{
    const LONG left = anyNumber(random);
    const LONG top = anyNumber(random);
    const LONG right = anyNumber(random);
    const LONG bottom = anyNumber(random);
    return {left, top, right, bottom};
}
} // namespace

using SceneMapping::ToDevice;

TEST(SceneMapping, TheSmallerScaleIsTakenAndTheSceneCentred)
{
    EXPECT_EQ(ToDevice({10, 10, 20, 30}, Area(100, 50), Area(300, 300)), (RECT{30, 105, 60, 165}));
    EXPECT_EQ(ToDevice({10, 10, 20, 30}, Area(50, 100), Area(300, 300)), (RECT{105, 30, 135, 90}));
}

TEST(SceneMapping, TheScaleOfAnAxisWithoutLengthIsOne)
{
    EXPECT_EQ(SceneMapping::ScaleOfAxis(0, 300), 1.0f);
    EXPECT_EQ(SceneMapping::ScaleOfAxis(0, 0), 1.0f);
    EXPECT_EQ(SceneMapping::ScaleOfAxis(100, 0), 0.0f);
    EXPECT_EQ(SceneMapping::ScaleOfAxis(100, 300), 3.0f);
    EXPECT_EQ(SceneMapping::ScaleOfAxis(-100, 50), -0.5f);
    EXPECT_EQ(SceneMapping::ScaleOfAxis(3, 5), 5.0f / 3.0f);
}

TEST(SceneMapping, ASceneWithoutSizeIsNotScaled)
{
    const RECT rect = {kSmallest, -16777217, 16777217, kLargest};
    EXPECT_EQ(ToDevice(rect, Area(0, 0), Area(300, 200)), rect);
    EXPECT_EQ(ToDevice(rect, {7, 9, 7, 9}, Area(300, 200)), rect);
}

TEST(SceneMapping, ASceneWithoutOneSideIsCentred)
{
    EXPECT_EQ(ToDevice({10, 10, 20, 30}, Area(0, 50), Area(300, 300)), (RECT{160, 135, 170, 155}));
    EXPECT_EQ(ToDevice({10, 10, 20, 30}, Area(50, 0), Area(300, 300)), (RECT{135, 160, 145, 180}));
}

TEST(SceneMapping, ABoardWithoutSizeTakesEverythingToItsCorner)
{
    EXPECT_EQ(ToDevice({10, -10, 20, 30}, Area(100, 50), Area(0, 0)), (RECT{0, 0, 0, 0}));
}

TEST(SceneMapping, ASceneThatDoesNotStartAtZeroIsMovedThere)
{
    EXPECT_EQ(ToDevice({17, 29, 27, 49}, {7, 19, 107, 69}, Area(300, 300)), (RECT{30, 105, 60, 165}));
}

TEST(SceneMapping, TheBoardCountsWithItsSizeAlone)
{
    EXPECT_EQ(ToDevice({10, 10, 20, 30}, Area(100, 50), {1000, 2000, 1300, 2300}), (RECT{30, 105, 60, 165}));
}

TEST(SceneMapping, EverythingIsCutOffTowardZero)
{
    EXPECT_EQ(ToDevice({-1, -3, 1, 3}, Area(100, 100), Area(150, 150)), (RECT{-1, -4, 1, 4}));
    EXPECT_EQ(ToDevice({0, 0, 0, 0}, Area(-2, -1), Area(3, 3)), (RECT{-1, 0, -1, 0}));
    EXPECT_EQ(ToDevice({0, 0, 0, 0}, Area(10, 3), Area(13, 13)), (RECT{0, 5, 0, 5}));
}

TEST(SceneMapping, EachStepIsOfSinglePrecision)
{
    EXPECT_EQ(ToDevice({0, 0, 7, 7}, Area(7, 7), Area(31, 31)), (RECT{0, 0, 30, 30}));
    EXPECT_EQ(ToDevice({0, 0, 7, 7}, Area(7, 7), Area(61, 61)), (RECT{0, 0, 61, 61}));
    EXPECT_EQ(ToDevice({0, 0, 3, 3}, Area(3, 3), Area(5, 5)), (RECT{0, 0, 5, 5}));
    EXPECT_EQ(ToDevice({16777217, 16777219, 0, 0}, Area(10, 10), Area(10, 10)),
              (RECT{16777216, 16777220, 0, 0}));
}

TEST(SceneMapping, AProductOutOfRangeIsTheSmallestNumber)
{
    EXPECT_EQ(ToDevice({65536, 32767, -32768, -32769}, Area(1, 1), Area(65536, 65536)),
              (RECT{kSmallest, 2147418112, kSmallest, kSmallest}));
}

TEST(SceneMapping, SumsWrapAround)
{
    // 1073741823, the offset, and 1073741952 are more than the range holds.
    EXPECT_EQ(ToDevice({1073741824, 1073741952, 0, 1}, Area(1, 0), Area(1, kLargest)),
              (RECT{1073741824, -2147483521, 0, 1073741824}));
}

TEST(SceneMapping, RandomScenesAgreeWithTheModel)
{
    std::mt19937 random(20260303);
    std::uniform_int_distribution<LONG> anySide(-3000, 3000);
    for (int round = 0; round < 100000; ++round)
    {
        const RECT logical = Area(anySide(random), anySide(random));
        const RECT device = Area(anySide(random), anySide(random));
        const RECT rect = {anySide(random), anySide(random), anySide(random), anySide(random)};
        ASSERT_EQ(ToDevice(rect, logical, device), Model(rect, logical, device))
            << "round " << round << ", scene " << logical << ", board " << device << ", " << rect;
    }
}

TEST(SceneMapping, AnyNumbersAgreeWithTheModel)
{
    std::mt19937 random(20260304);
    AnyNumber anyNumber;
    for (int round = 0; round < 100000; ++round)
    {
        const RECT logical = AnyRect(anyNumber, random);
        const RECT device = AnyRect(anyNumber, random);
        const RECT rect = AnyRect(anyNumber, random);
        ASSERT_EQ(ToDevice(rect, logical, device), Model(rect, logical, device))
            << "round " << round << ", scene " << logical << ", board " << device << ", " << rect;
    }
}

TEST(SceneMapping, AUsualSceneLiesWithinTheBoardAndInItsMiddle)
{
    std::mt19937 random(20260305);
    std::uniform_int_distribution<LONG> anySide(1, 4000);
    for (int round = 0; round < 50000; ++round)
    {
        const RECT logical = Area(anySide(random), anySide(random));
        const RECT device = Area(anySide(random), anySide(random));
        const RECT scene = ToDevice(logical, logical, device);
        ASSERT_GE(scene.left, 0);
        ASSERT_GE(scene.top, 0);
        ASSERT_LE(scene.right, device.right);
        ASSERT_LE(scene.bottom, device.bottom);
        const LONG slackRight = device.right - scene.right - scene.left;
        const LONG slackBottom = device.bottom - scene.bottom - scene.top;
        ASSERT_TRUE(slackRight == 0 || slackRight == 1) << "round " << round;
        ASSERT_TRUE(slackBottom == 0 || slackBottom == 1) << "round " << round;
    }
}

TEST(SceneMapping, NeighboursInTheSceneAreNeighboursOnTheBoard)
{
    std::mt19937 random(20260306);
    std::uniform_int_distribution<LONG> anySide(1, 4000);
    for (int round = 0; round < 50000; ++round)
    {
        const RECT logical = Area(anySide(random), anySide(random));
        const RECT device = Area(anySide(random), anySide(random));
        const LONG edge = anySide(random);
        const RECT before = ToDevice({0, 0, edge, edge}, logical, device);
        const RECT after = ToDevice({edge, edge, 5000, 5000}, logical, device);
        ASSERT_EQ(before.right, after.left);
        ASSERT_EQ(before.bottom, after.top);
        ASSERT_LE(before.left, before.right);
        ASSERT_LE(after.left, after.right);
    }
}
