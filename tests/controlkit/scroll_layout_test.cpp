#include "controlkit/scroll_layout.h"

#include <gtest/gtest.h>

#include "controlkit/scroll_control.h"

namespace velvox {
namespace {

TEST(ScrollLayoutTest, ABarShowsWhereTheContentDoesNotFit) {
    constexpr struct {
        const char* what;
        Size room, content;
        ScrollLayout expected;
    } rows[] = {
        {"fits", {100, 80}, {100, 80}, {{100, false, 0}, {80, false, 0}}},
        {"tall", {100, 80}, {90, 81}, {{90, false, 0}, {80, true, 1}}},
        {"wide", {100, 80}, {101, 70}, {{100, true, 1}, {70, false, 0}}},
        {"as tall as the bar leaves", {100, 80}, {90, 900}, {{90, false, 0}, {80, true, 820}}},
        {"tall, so too wide", {100, 80}, {91, 81}, {{90, true, 1}, {70, true, 11}}},
        {"wide, so too tall", {100, 80}, {101, 71}, {{90, true, 11}, {70, true, 1}}},
        {"nothing there", {100, 80}, {0, 0}, {{100, false, 0}, {80, false, 0}}},
        {"no room", {5, 0}, {9, 9}, {{0, true, 9}, {0, true, 9}}},
        {"neither room nor content", {-2, -2}, {0, 0}, {{0, false, 0}, {0, false, 0}}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(layOutScroll(row.room, row.content, 10), row.expected) << row.what;
}

TEST(ScrollLayoutTest, ScrollsNoFurtherThanIsNeededToShowAPart) {
    constexpr struct {
        Span part;
        int position, expected;
    } rows[] = {{{50, 10}, 0, 0},     {{100, 10}, 0, 10}, {{95, 10}, 0, 5},   {{50, 10}, 55, 50},
                {{0, 10}, 80, 0},     {{20, 100}, 0, 20}, {{20, 300}, 0, 20}, {{20, 300}, 150, 150},
                {{20, 300}, 230, 20}, {{9, 0}, 30, 9}};
    for (const auto& [part, position, expected] : rows)
        EXPECT_EQ(positionShowing(part, position, 100), expected) << part.start << ' ' << position;
}

TEST(ScrollLayoutTest, KeysAndWheelMoveTheBarThatShows) {
    const auto layout = [](bool horizontal, bool vertical) {
        return ScrollLayout{{10, horizontal, 1}, {10, vertical, 1}};
    };
    constexpr auto none = std::optional<Axis>();
    constexpr auto h = std::optional(Axis::Horizontal), v = std::optional(Axis::Vertical);
    const struct {
        std::int16_t key;
        std::optional<Axis> both, onlyHorizontal, onlyVertical;
    } rows[] = {{ScrollKeys::left, h, h, none},
                {ScrollKeys::down, v, none, v},
                {ScrollKeys::pageUp, v, h, v},
                {ScrollKeys::end, v, h, v},
                {'A', none, none, none}};
    for (const auto& row : rows) {
        EXPECT_EQ(barOfKey(row.key, layout(true, true)), row.both) << row.key;
        EXPECT_EQ(barOfKey(row.key, layout(true, false)), row.onlyHorizontal) << row.key;
        EXPECT_EQ(barOfKey(row.key, layout(false, true)), row.onlyVertical) << row.key;
        EXPECT_EQ(barOfKey(row.key, layout(false, false)), none) << row.key;
    }
    EXPECT_EQ(barOfWheel(false, layout(true, true)), v);
    EXPECT_EQ(barOfWheel(true, layout(true, true)), h);
    EXPECT_EQ(barOfWheel(false, layout(true, false)), h);
    EXPECT_EQ(barOfWheel(false, layout(false, false)), none);
}

}  // namespace
}  // namespace velvox
