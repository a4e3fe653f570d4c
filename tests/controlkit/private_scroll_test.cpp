#include "controlkit/private_scroll.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "base/runtime_failure.h"

namespace velvox {
namespace {

/// Writes down what happens, in order.
class Recorder : public tsPrivateScroll {
 public:
    explicit Recorder(Axis axis = Axis::Vertical) : tsPrivateScroll(axis) {
        Change = [this](const FixedPoint& value) {
            log.push_back("Change " + value.text());
            EXPECT_EQ(&value, lastField ? lastField : &value);
            lastField = &value;
        };
        PropertyChanged = [this](std::string_view name) { log.emplace_back(name); };
    }

    using tsPrivateScroll::arrowLength;

    std::vector<std::string> log;
    const FixedPoint* lastField = nullptr;

 private:
    void redraw() override { log.push_back("draw " + Value().text()); }
};

using Log = std::vector<std::string>;

TEST(PrivateScrollTest, ChangeComesBeforeTheStoreAndSeesTheOldValue) {
    Recorder bar;
    bar.Value(60);
    EXPECT_EQ(bar.log, (Log{"Change 50", "Value", "draw 60"}));
    bar.log.clear();
    bar.Value(60);
    EXPECT_EQ(bar.log, Log{});
    bar.Value(60.00004);
    EXPECT_EQ(bar.log, Log{}) << "differs in the fifth decimal only";
    bar.Value(60.0001);
    EXPECT_EQ(bar.log, (Log{"Change 60", "Value", "draw 60.0001"}));
}

TEST(PrivateScrollTest, SuppressionServesOneAssignmentThatIsNotBlocked) {
    Recorder bar;
    bar.BlockVS(true);
    bar.Value(1);
    EXPECT_EQ(bar.log, (Log{"Value", "draw 1"}));
    EXPECT_FALSE(bar.BlockVS());
    bar.log.clear();

    bar.BlockVS(true);
    bar.Value(1);
    EXPECT_FALSE(bar.BlockVS()) << "an assignment of the same value uses it up";
    bar.Value(2);
    EXPECT_EQ(bar.log, (Log{"Change 1", "Value", "draw 2"}));
    bar.log.clear();

    bar.BlockVS(true);
    bar.BlockValue(true);
    bar.Value(3);
    EXPECT_EQ(bar.log, Log{});
    EXPECT_EQ(bar.Value(), FixedPoint(2));
    EXPECT_TRUE(bar.BlockVS()) << "a blocked assignment is ignored entirely";
    bar.BlockValue(false);
    bar.Value(3);
    EXPECT_EQ(bar.log, (Log{"Value", "draw 3"}));
}

TEST(PrivateScrollTest, AHandlerMayAssignOrMoveTheBounds) {
    tsPrivateScroll bar;
    int calls = 0;
    bar.Change = [&](const FixedPoint&) {
        ++calls;
        bar.BlockVS(true);
        bar.Value(7);
    };
    bar.Value(60);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(bar.Value(), FixedPoint(60)) << "the outer assignment stores last";
    bool moved = false;
    bar.Change = [&](const FixedPoint&) {
        if (!std::exchange(moved, true)) bar.Max(70);
    };
    bar.Value(90);
    EXPECT_EQ(bar.Value(), FixedPoint(70));
}

TEST(PrivateScrollTest, ValueIsKeptWithinTheBounds) {
    Recorder bar;
    bar.Value(1000);
    EXPECT_EQ(bar.Value(), FixedPoint(100));
    bar.log.clear();
    bar.Value(101);
    EXPECT_EQ(bar.log, Log{}) << "what is stored would not differ";
    bar.Max(80);
    EXPECT_EQ(bar.log, (Log{"Max", "draw 100", "Change 100", "Value", "draw 80"}));
    bar.BlockVS(true);
    bar.Min(-5);
    EXPECT_TRUE(bar.BlockVS()) << "nothing had to be moved";
    bar.Value(-6);
    EXPECT_EQ(bar.Value(), FixedPoint(-5));

    bar.Min(200);
    EXPECT_EQ(bar.Value(), FixedPoint(200)) << "Min above Max: nothing to scroll, at Min";
    bar.Value(90);
    EXPECT_EQ(bar.Value(), FixedPoint(200));
    bar.Max(300);
    bar.Value(250.5);
    EXPECT_EQ(bar.Value(), FixedPoint(250.5));
}

TEST(PrivateScrollTest, SettersStoreNotifyAndDraw) {
    Recorder bar;
    bar.UnRefreshControl(false);
    bar.SmallChange(4);
    bar.Value(51);
    bar.UnRefreshControl(true);
    EXPECT_EQ(bar.log, (Log{"UnRefreshControl", "SmallChange", "Change 50", "Value",
                            "UnRefreshControl", "draw 51"}))
        << "drawing waits for Refresh";
    bar.log.clear();
    EXPECT_THROW(bar.LargeChange(-1), RuntimeFailure);
    EXPECT_THROW(bar.MouseInterval(-1), RuntimeFailure);
    EXPECT_THROW(bar.arrowLength(-1), RuntimeFailure);
    EXPECT_EQ(bar.log, Log{});
    Recorder horizontal(Axis::Horizontal);
    bar.arrowLength(3);
    horizontal.arrowLength(3);
    EXPECT_EQ(bar.log.front(), "ScrollHeight");
    EXPECT_EQ(horizontal.log.front(), "ScrollWidth");
}

TEST(PrivateScrollTest, StoresEighteenKeysInOrder) {
    Recorder bar(Axis::Horizontal);
    EXPECT_TRUE(bar.writeProperties().entries().empty()) << "defaults are not stored";
    const PropertyBag bag{{"ArrowColor", 1},       {"BackColor", 2},
                          {"BorderColor", 3},      {"Enabled", false},
                          {"EnableWheel", false},  {"FrontColor", 4},
                          {"LargeChange", 20},     {"Max", 900},
                          {"Min", -900},           {"ScrollWidth", 11},
                          {"SmallChange", 2},      {"Value", -800},
                          {"WheelChange", 5},      {"MouseHoverColor", -2147483633},
                          {"DownColor", 6},        {"MouseInterval", 50},
                          {"LargeChangeColor", 7}, {"UnRefreshControl", false}};
    bar.readProperties(bag);
    EXPECT_EQ(bar.log, Log{"draw -800"}) << "neither Change nor a notice";
    EXPECT_EQ(bar.MouseHoverColor(), 0x8000000FU);
    EXPECT_EQ(bar.writeProperties(), bag);
    // The vertical bar has a key of its own for its arrows.
    Recorder vertical;
    vertical.readProperties(bag);
    EXPECT_EQ(vertical.arrowLength(), 10);

    bar.BlockValue(true);
    bar.initProperties();
    EXPECT_FALSE(bar.BlockValue());
    EXPECT_TRUE(bar.writeProperties().entries().empty()) << "a fresh bar is one of defaults";
    EXPECT_EQ(bar.BorderColor(), 0xFF8080U);
    EXPECT_EQ(bar.FrontColor(), 0xF0D0BFU);
    EXPECT_EQ(bar.LargeChangeColor(), 0xBE9E8DU);
    EXPECT_EQ(bar.Value(), FixedPoint(50));
}

TEST(PrivateScrollTest, ABagThatCannotBeTakenAltersNothing) {
    Recorder bar;
    EXPECT_THROW(bar.readProperties({{"Max", 300}, {"SmallChange", -1}}), RuntimeFailure);
    EXPECT_THROW(bar.readProperties({{"Max", 300}, {"BackColor", "blue"}}), RuntimeFailure);
    EXPECT_EQ(bar.Max(), 100);
    bar.readProperties({{"Max", 10}, {"Value", 2147483647}});
    EXPECT_EQ(bar.Value(), FixedPoint(10));
    bar.Min(std::numeric_limits<std::int32_t>::min());
    bar.Max(std::numeric_limits<std::int32_t>::max());
    bar.Value(2147483646.5);
    Recorder copy;
    copy.readProperties(bar.writeProperties());
    EXPECT_EQ(copy.Value(), FixedPoint(2147483646)) << "stored as a whole number";
}

}  // namespace
}  // namespace velvox
