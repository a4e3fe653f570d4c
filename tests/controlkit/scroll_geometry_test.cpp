#include "controlkit/scroll_geometry.h"

#include <gtest/gtest.h>

#include <limits>

namespace velvox {
namespace {

constexpr std::int32_t lowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t highest = std::numeric_limits<std::int32_t>::max();

/// Of a bar with arrows of 10 and a thumb of 8 pixels at least.
ScrollMeasure measure(int length, std::int32_t min, std::int32_t max, std::int32_t page,
                      FixedPoint value) {
    return {length, 10, 8, min, max, page, value};
}

/// What holds for every bar: the parts cover it without gap or overlap and agree with `hit`.
void expectWhole(const ScrollMeasure& m) {
    SCOPED_TRACE(testing::Message() << m.length << " pixels from " << m.min << " to " << m.max
                                    << " by " << m.largeChange << " at " << m.value.text());
    const ScrollGeometry g(m);
    int at = 0;
    const std::pair<ScrollPart, Span> parts[] = {{ScrollPart::LessArrow, g.lessArrow()},
                                                 {ScrollPart::TrackBefore, g.trackBefore()},
                                                 {ScrollPart::Thumb, g.thumb()},
                                                 {ScrollPart::TrackAfter, g.trackAfter()},
                                                 {ScrollPart::MoreArrow, g.moreArrow()}};
    for (const auto& [part, span] : parts) {
        ASSERT_EQ(span.start, at);
        for (; at < span.end(); ++at) ASSERT_EQ(g.hit(at), part) << at;
    }
    EXPECT_EQ(at, m.length);
    EXPECT_EQ(g.hit(-1), ScrollPart::None);
    EXPECT_EQ(g.hit(m.length), ScrollPart::None);
}

TEST(ScrollGeometryTest, PartsCoverTheBarForExtremeRangesAndTinyBars) {
    const std::pair<std::int32_t, std::int32_t> ranges[] = {
        {0, 100}, {7, 7}, {100, 0}, {lowest, highest}, {highest, lowest}, {-1, 0}};
    for (const int length : {0, 1, 2, 3, 15, 19, 20, 21, 27, 28, 29, 130, 4000})
        for (const auto& [min, max] : ranges)
            for (const std::int32_t page : {0, 1, 10, highest})
                for (const double value : {double{lowest}, 0.0, 0.5, 33.0, double{highest}})
                    expectWhole(measure(length, min, max, page, value));
}

TEST(ScrollGeometryTest, ThumbFollowsValueAndPage) {
    // A track of 110 pixels for a range of 100 and a page of 10; nothing to scroll fills it; a
    // tiny bar drops the thumb.
    const std::tuple<int, std::int32_t, std::int32_t, double, Span> rows[] = {
        {130, 100, 10, 50, {60, 10}},
        {130, 100, 10, 0, {10, 10}},
        {130, 100, 10, 100, {110, 10}},
        {130, 100, 100, 100, {65, 55}},
        {130, 1000000, 100, 1000000, {112, 8}},
        {130, 0, 10, 50, {10, 110}},
        {130, lowest, 0, 50, {10, 110}},
        {28, 100, 10, 0, {10, 8}},
        {27, 100, 10, 0, {10, 0}},
        {15, 100, 10, 0, {7, 0}}};
    for (const auto& [length, max, page, value, thumb] : rows)
        EXPECT_EQ(ScrollGeometry(measure(length, 0, max, page, value)).thumb(), thumb)
            << length << ' ' << max << ' ' << value;
    EXPECT_EQ(ScrollGeometry(measure(130, 0, 4, 1, 0)).valueAt(10 + 13), FixedPoint(1))
        << "of 0.59";
    EXPECT_EQ(ScrollGeometry(measure(130, 7, 7, 10, 7)).valueAt(60), FixedPoint(7));
}

TEST(ScrollGeometryTest, EveryThumbPositionComesBackFromItsValue) {
    // More values than pixels: the way from a pixel to a value and back must not wander.
    for (const std::int32_t max : {99999, highest}) {
        ScrollMeasure m = measure(130, max == highest ? lowest : 0, max, 10, 0);
        const ScrollGeometry g(m);
        for (int start = g.track().start; start + g.thumb().length <= g.track().end(); ++start) {
            m.value = g.valueAt(start);
            ASSERT_EQ(ScrollGeometry(m).thumb().start, start);
        }
        EXPECT_EQ(m.value, FixedPoint(max));
    }
}

}  // namespace
}  // namespace velvox
