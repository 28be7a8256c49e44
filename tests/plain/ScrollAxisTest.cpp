#include <scrollframe/ScrollAxis.h>

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <ostream>
#include <random>

namespace
{
constexpr int kLineStep = 8;

struct Numbers
{
    int content = 0;
    int position = 0;
    int page = 0;
    int maximum = 0;

    ScrollAxis Axis() { return {content, position, page, maximum}; }

    int Shift(int way) { return ::Shift(Axis(), way); }

    void TakeOver(int visible, bool keepsProportion) { ::TakeOver(Axis(), visible, keepsProportion); }

    int WayOf(ScrollCommand command, int thumb = 0) { return ::WayOf(Axis(), command, kLineStep, thumb); }

    // What an update does with one axis.
    void Update(int newContent, int visible, bool keepsProportion)
    {
        content = newContent;
        TakeOver(visible, keepsProportion);
        if (NeedsBar(Axis()))
            Shift(0);
        else
            RemoveBar(Axis());
    }
};

bool operator==(const Numbers& a, const Numbers& b)
{
    return a.content == b.content && a.position == b.position && a.page == b.page && a.maximum == b.maximum;
}

std::ostream& operator<<(std::ostream& stream, const Numbers& numbers)
{
    return stream << numbers.content << " long, at " << numbers.position << ", page " << numbers.page
                  << ", range to " << numbers.maximum;
}

// Slow and obvious: goes pixel by pixel, and only where there is a pixel to go.
class Model
{
public:
    void Update(long long content, long long visible, bool keepsProportion)
    {
        const long long oldLast = m_hasBar ? m_content - 1 : 0;
        if (keepsProportion)
            m_hidden = oldLast == 0 ? 0 : Nearest(m_hidden * (content - 1), oldLast);
        m_content = content;
        m_visible = visible;
        m_hasBar = visible < content;
        if (!m_hasBar)
            m_hidden = 0;
        while (m_hasBar && m_hidden + m_visible > m_content)
            --m_hidden;
    }

    void Go(ScrollCommand command, int thumb)
    {
        switch (command)
        {
        case ScrollCommand::LineBack:
            return GoBy(-kLineStep);
        case ScrollCommand::LineForward:
            return GoBy(kLineStep);
        case ScrollCommand::PageBack:
            return GoBy(-m_visible);
        case ScrollCommand::PageForward:
            return GoBy(m_visible);
        case ScrollCommand::FollowThumb:
            return GoBy(thumb - m_hidden);
        }
    }

    bool HasBar() const { return m_hasBar; }

    Numbers Expected() const
    {
        Numbers numbers;
        numbers.content = static_cast<int>(m_content);
        if (!m_hasBar)
            return numbers;
        numbers.position = static_cast<int>(m_hidden);
        numbers.page = static_cast<int>(m_visible);
        numbers.maximum = static_cast<int>(m_content - 1);
        return numbers;
    }

private:
    static long long Nearest(long long dividend, long long divisor)
    {
        const long long below = dividend / divisor;
        return 2 * (dividend - below * divisor) >= divisor ? below + 1 : below;
    }

    void GoBy(long long way)
    {
        for (long long i = 0; i < std::llabs(way); ++i)
        {
            const bool atEnd = way < 0 ? m_hidden == 0 : m_hidden + m_visible >= m_content;
            if (atEnd)
                return;
            m_hidden += way < 0 ? -1 : 1;
        }
    }

    long long m_content = 0;
    long long m_visible = 0;
    long long m_hidden = 0; // before the first visible pixel
    bool m_hasBar = false;
};

constexpr std::array kCommands = {ScrollCommand::LineBack, ScrollCommand::LineForward,
                                  ScrollCommand::PageBack, ScrollCommand::PageForward,
                                  ScrollCommand::FollowThumb};

void ExpectInvariants(const Numbers& numbers)
{
    if (numbers.maximum == 0 && numbers.page == 0)
    {
        EXPECT_EQ(numbers.position, 0);
        return;
    }
    EXPECT_EQ(numbers.maximum, numbers.content - 1);
    EXPECT_LT(numbers.page, numbers.content);
    EXPECT_GE(numbers.position, 0);
    EXPECT_LE(numbers.position, numbers.content - numbers.page);
}

// An update, at the same DPI or at another one, or a command.
void TakeRandomStep(std::mt19937& random, Numbers& numbers, Model& model)
{
    const int event = std::uniform_int_distribution<int>(0, 9)(random);
    if (event < 3)
    {
        const int content = std::uniform_int_distribution<int>(20, 3000)(random);
        const int visible = std::uniform_int_distribution<int>(0, 3000)(random);
        numbers.Update(content, visible, event == 0);
        model.Update(content, visible, event == 0);
        return;
    }
    if (!model.HasBar())
        return;
    const ScrollCommand command =
        kCommands.at(std::uniform_int_distribution<std::size_t>(0, kCommands.size() - 1)(random));
    const int thumb = std::uniform_int_distribution<int>(-100, 3100)(random);
    const int before = numbers.position;
    const int gone = numbers.Shift(numbers.WayOf(command, thumb));
    EXPECT_EQ(gone, numbers.position - before);
    model.Go(command, thumb);
}

Numbers HalfWay()
{
    Numbers numbers;
    numbers.Update(300, 200, false);
    numbers.Shift(50);
    return numbers;
}
} // namespace

TEST(ScrollAxis, CommandsAskForALineAPageOrTheThumb)
{
    Numbers numbers = HalfWay();
    EXPECT_EQ(numbers.WayOf(ScrollCommand::LineBack), -8);
    EXPECT_EQ(numbers.WayOf(ScrollCommand::LineForward), 8);
    EXPECT_EQ(numbers.WayOf(ScrollCommand::PageBack), -200);
    EXPECT_EQ(numbers.WayOf(ScrollCommand::PageForward), 200);
    EXPECT_EQ(numbers.WayOf(ScrollCommand::FollowThumb, 70), 20);
    EXPECT_EQ(numbers.WayOf(ScrollCommand::FollowThumb, 20), -30);
}

TEST(ScrollAxis, AWayEndsWhereTheContentEnds)
{
    Numbers numbers = HalfWay();
    EXPECT_EQ(numbers.Shift(45), 45);
    EXPECT_EQ(numbers.Shift(8), 5);
    EXPECT_EQ(numbers.position, 100);
    EXPECT_EQ(numbers.Shift(8), 0);
    EXPECT_EQ(numbers.Shift(-70), -70);
    EXPECT_EQ(numbers.Shift(-200), -30);
    EXPECT_EQ(numbers.position, 0);
}

TEST(ScrollAxis, ALargerPagePullsThePositionBack)
{
    Numbers numbers = HalfWay();
    numbers.TakeOver(280, false);
    EXPECT_EQ(numbers.Shift(0), -30);
    EXPECT_EQ(numbers.position, 20);
}

TEST(ScrollAxis, APageThatIsLargerThanTheContentPullsThePositionBeyondTheStart)
{
    Numbers numbers = HalfWay();
    numbers.page = 310;
    EXPECT_EQ(numbers.Shift(0), -60);
    EXPECT_EQ(numbers.position, -10);
    EXPECT_EQ(numbers.Shift(-1), 10);
    EXPECT_EQ(numbers.Shift(-5), 0); // ends at the start, though that is beyond the end
    EXPECT_EQ(numbers.Shift(0), -10);
    EXPECT_EQ(numbers.position, -10);
}

TEST(ScrollAxis, ABarIsNeededForAnyPixelThatIsNotSeen)
{
    Numbers numbers;
    numbers.Update(320, 320, false);
    EXPECT_EQ(numbers, (Numbers{320, 0, 0, 0}));
    numbers.Update(320, 319, false);
    EXPECT_EQ(numbers, (Numbers{320, 0, 319, 319}));
}

TEST(ScrollAxis, ThePositionKeepsItsProportionOrItsDistance)
{
    Numbers numbers = {500, 100, 200, 499};
    numbers.Update(1000, 400, true);
    EXPECT_EQ(numbers, (Numbers{1000, 200, 400, 999}));

    numbers = {500, 100, 200, 499};
    numbers.Update(1000, 400, false);
    EXPECT_EQ(numbers, (Numbers{1000, 100, 400, 999}));

    numbers = {500, 100, 200, 0};
    numbers.Update(1000, 400, true);
    EXPECT_EQ(numbers, (Numbers{1000, 0, 400, 999}));

    numbers = {2, 1, 1, 1};
    numbers.Update(1000, 400, true);
    EXPECT_EQ(numbers, (Numbers{1000, 600, 400, 999})); // 999 would be beyond the end
}

TEST(ScrollAxis, TheRangeEndsAtTheLastPixelOrAtTheStart)
{
    Numbers numbers;
    numbers.content = 0;
    numbers.TakeOver(-5, false);
    EXPECT_EQ(numbers.maximum, 0);
    numbers.content = 1;
    numbers.TakeOver(-5, false);
    EXPECT_EQ(numbers.maximum, 0);
    numbers.content = 2;
    numbers.TakeOver(-5, false);
    EXPECT_EQ(numbers.maximum, 1);
}

TEST(ScrollAxis, ANegativePositionBecomesTheStart)
{
    Numbers numbers = {500, -3, 200, 499};
    numbers.TakeOver(200, false);
    EXPECT_EQ(numbers.position, 0);
}

TEST(ScrollAxis, RandomSequencesAgreeWithTheModel)
{
    std::mt19937 random(81);
    for (int sequence = 0; sequence < 300; ++sequence)
    {
        Numbers numbers;
        Model model;
        for (int step = 0; step < 200; ++step)
        {
            TakeRandomStep(random, numbers, model);
            ASSERT_EQ(numbers, model.Expected()) << "sequence " << sequence << ", step " << step;
            ExpectInvariants(numbers);
        }
    }
}

TEST(ScrollAxis, AnyNumbersAreTakenWithoutUndefinedBehaviour)
{
    std::mt19937 random(18);
    std::uniform_int_distribution<int> any(INT32_MIN, INT32_MAX);
    for (int round = 0; round < 100000; ++round)
    {
        Numbers numbers = {any(random), any(random), any(random), any(random)};
        const int before = numbers.position;
        const int way =
            numbers.WayOf(kCommands.at(static_cast<std::size_t>(round) % kCommands.size()), any(random));
        const int gone = numbers.Shift(way);
        ASSERT_EQ(WrappingAdd(before, gone), numbers.position);
        numbers.TakeOver(any(random), round % 2 == 0);
        ASSERT_GE(numbers.position, 0);
        ASSERT_GE(numbers.maximum, 0);
    }
}

TEST(ScrollAxis, APageWithoutAnOppositeIsItsOwn)
{
    Numbers numbers;
    numbers.page = INT32_MIN;
    EXPECT_EQ(numbers.WayOf(ScrollCommand::PageBack), INT32_MIN);
}
