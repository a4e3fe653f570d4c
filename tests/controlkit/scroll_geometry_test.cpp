#include "controlkit/scroll_geometry.h"

#include <gtest/gtest.h>

#include <limits>

namespace velvox {
namespace {

constexpr std::int32_t lowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t highest = std::numeric_limits<std::int32_t>::max();

ScrollMeasure measure(int length, std::int32_t min, std::int32_t max, std::int32_t page,
                      FixedPoint value) {
    return {.length = length,
            .arrowLength = 10,
            .minimumThumb = 8,
            .min = min,
            .max = max,
            .largeChange = page,
            .value = value};
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
    const std::pair<std::int32_t, std::int32_t> ranges[] = {
        {0, 100}, {7, 7}, {100, 0}, {lowest, highest}, {highest, lowest}, {-1, 0}};
    for (const int length : {0, 1, 2, 3, 12, 19, 20, 21, 27, 28, 29, 130, 4000})
        for (const auto& [min, max] : ranges)
            for (const std::int32_t page : {0, 1, 10, highest})
                for (const double value : {double{lowest}, 0.0, 0.5, 33.0, double{highest}})
                    expectWhole(measure(length, min, max, page, value));
}

TEST(ScrollGeometryTest, ThumbFollowsValueAndPage) {
    // A track of 110 pixels for a range of 100 and a page of 10; nothing to scroll fills it; a
    // tiny bar drops the thumb.
    const struct {
        int length;
        std::int32_t max, page;
        double value;
        Span thumb;
    } rows[] = {{130, 100, 10, 50, {60, 10}},           {130, 100, 10, 0, {10, 10}},
                {130, 100, 10, 100, {110, 10}},         {130, 100, 100, 100, {65, 55}},
                {130, 1000000, 100, 1000000, {112, 8}}, {130, 0, 10, 50, {10, 110}},
                {130, lowest, 10, 50, {10, 110}},       {28, 100, 10, 0, {10, 8}}};
    for (const auto& row : rows)
        EXPECT_EQ(ScrollGeometry(measure(row.length, 0, row.max, row.page, row.value)).thumb(),
                  row.thumb)
            << row.max << ' ' << row.value;
    EXPECT_EQ(ScrollGeometry(measure(130, 0, -100, 10, 50)).valueAt(60), FixedPoint(0));
    EXPECT_EQ(ScrollGeometry(measure(27, 0, 100, 10, 50)).thumb().length, 0);
    const ScrollGeometry halves(measure(15, 0, 100, 10, 50));
    EXPECT_EQ(halves.lessArrow(), (Span{0, 7}));
    EXPECT_EQ(halves.track(), (Span{7, 1}));
    EXPECT_EQ(halves.moreArrow(), (Span{8, 7}));
}

TEST(ScrollGeometryTest, EveryThumbPositionComesBackFromItsValue) {
    // More values than pixels: the way from a pixel to a value and back must not wander.
    for (const std::int32_t max : {99999, highest}) {
        ScrollMeasure m = measure(130, max == highest ? lowest : 0, max, 10, 0);
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
