#include "controlkit/scroll_geometry.h"

#include <gtest/gtest.h>

#include <limits>

namespace velvox {
namespace {

constexpr std::int32_t lowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t highest = std::numeric_limits<std::int32_t>::max();

ScrollMeasure usual() {
    return {.length = 130,
            .arrowLength = 10,
            .minimumThumb = 8,
            .min = 0,
            .max = 100,
            .largeChange = 10,
            .value = 50};
}

/// What holds for every bar: the parts cover it without gap or overlap and agree with `hit`.
void expectWhole(const ScrollMeasure& m) {
    SCOPED_TRACE(testing::Message()
                 << "length " << m.length << " arrows " << m.arrowLength << " from " << m.min
                 << " to " << m.max << " by " << m.largeChange << " at " << m.value.text());
    const ScrollGeometry g(m);
    ScrollPart before = ScrollPart::LessArrow;
    for (int at = 0; at < m.length; ++at) {
        const ScrollPart part = g.hit(at);
        ASSERT_NE(part, ScrollPart::None) << at;
        ASSERT_GE(part, before) << at;
        before = part;
        ASSERT_EQ(part == ScrollPart::Thumb, g.thumb().contains(at)) << at;
        ASSERT_EQ(part == ScrollPart::TrackBefore, g.trackBefore().contains(at)) << at;
        ASSERT_EQ(part == ScrollPart::TrackAfter, g.trackAfter().contains(at)) << at;
    }
    EXPECT_EQ(g.hit(-1), ScrollPart::None);
    EXPECT_EQ(g.hit(m.length), ScrollPart::None);
    EXPECT_EQ(g.lessArrow().length, g.moreArrow().length);
    if (g.thumb().length > 0) {
        EXPECT_GE(g.thumb().length, m.minimumThumb);
    }
    if (m.max > m.min && g.thumb().length > 0 && g.thumb().length < g.track().length) {
        EXPECT_EQ(g.valueAt(std::numeric_limits<int>::min()), FixedPoint(m.min));
        EXPECT_EQ(g.valueAt(std::numeric_limits<int>::max()), FixedPoint(m.max));
    }
}

TEST(ScrollGeometryTest, PartsCoverTheBarForExtremeRangesAndTinyBars) {
    const struct {
        std::int32_t min, max;
    } ranges[] = {{0, 100}, {7, 7}, {100, 0}, {lowest, highest}, {highest, lowest}, {-1, 0}};
    for (const int length : {0, 1, 2, 3, 12, 19, 20, 21, 27, 28, 29, 130, 4000})
        for (const auto& range : ranges)
            for (const std::int32_t page : {0, 1, 10, highest})
                for (const FixedPoint value : {FixedPoint(lowest), FixedPoint(0), FixedPoint(0.5),
                                               FixedPoint(33), FixedPoint(highest)}) {
                    ScrollMeasure m = usual();
                    m.length = length;
                    m.min = range.min;
                    m.max = range.max;
                    m.largeChange = page;
                    m.value = value;
                    expectWhole(m);
                }
}

TEST(ScrollGeometryTest, ThumbFollowsValueAndPage) {
    ScrollMeasure m = usual();
    // A track of 110 pixels for a range of 100 and a page of 10.
    EXPECT_EQ(ScrollGeometry(m).thumb(), (Span{10 + 50, 10}));
    m.value = 0;
    EXPECT_EQ(ScrollGeometry(m).thumb(), (Span{10, 10}));
    m.value = 100;
    EXPECT_EQ(ScrollGeometry(m).thumb(), (Span{110, 10}));
    m.largeChange = 100;
    EXPECT_EQ(ScrollGeometry(m).thumb(), (Span{65, 55}));
    m.max = 1000000;
    m.value = 1000000;
    EXPECT_EQ(ScrollGeometry(m).thumb(), (Span{112, 8}));
}

TEST(ScrollGeometryTest, NothingToScrollFillsTheTrackAndStaysAtMin) {
    ScrollMeasure m = usual();
    for (const std::int32_t max : {0, -100, lowest}) {
        m.max = max;
        const ScrollGeometry g(m);
        EXPECT_EQ(g.thumb(), g.track()) << max;
        EXPECT_EQ(g.valueAt(60), FixedPoint(0)) << max;
    }
}

TEST(ScrollGeometryTest, TinyBarsShareTheLengthAndDropTheThumb) {
    ScrollMeasure m = usual();
    m.length = 15;
    const ScrollGeometry halves(m);
    EXPECT_EQ(halves.lessArrow(), (Span{0, 7}));
    EXPECT_EQ(halves.track(), (Span{7, 1}));
    EXPECT_EQ(halves.moreArrow(), (Span{8, 7}));
    m.length = 27;
    EXPECT_EQ(ScrollGeometry(m).thumb().length, 0);
    m.length = 28;
    EXPECT_EQ(ScrollGeometry(m).thumb().length, 8);
}

TEST(ScrollGeometryTest, EveryThumbPositionComesBackFromItsValue) {
    // More values than pixels: the way from a pixel to a value and back must not wander.
    for (const std::int32_t max : {99999, highest}) {
        ScrollMeasure m = usual();
        m.min = max == highest ? lowest : 0;
        m.max = max;
        const ScrollGeometry g(m);
        FixedPoint last = m.min;
        for (int start = g.track().start; start + g.thumb().length <= g.track().end(); ++start) {
            m.value = g.valueAt(start);
            ASSERT_GE(m.value, last);
            last = m.value;
            ASSERT_EQ(ScrollGeometry(m).thumb().start, start);
        }
        EXPECT_EQ(last, FixedPoint(max));
    }
}

}  // namespace
}  // namespace velvox
