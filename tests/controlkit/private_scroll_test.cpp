#include "controlkit/private_scroll.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/runtime_failure.h"

namespace velvox {
namespace {

using Log = std::vector<std::string>;

/// Writes down what happens, in order.
class Recorder : public tsPrivateScroll {
 public:
    explicit Recorder(Axis axis = Axis::Vertical) : tsPrivateScroll(axis) {
        Change = [this](const FixedPoint& value) { log.push_back("Change " + value.text()); };
        PropertyChanged = [this](std::string_view name) { log.emplace_back(name); };
    }

    using tsPrivateScroll::arrowLength;

    /// What an assignment leads to.
    Log assigned(FixedPoint value) {
        log.clear();
        Value(value);
        return log;
    }

    Log log;

 private:
    void redraw() override { log.push_back("draw " + Value().text()); }
};

TEST(PrivateScrollTest, ChangeComesBeforeTheStoreAndSeesTheOldValue) {
    Recorder bar;
    EXPECT_EQ(bar.assigned(60), (Log{"Change 50", "Value", "draw 60"}));
    EXPECT_EQ(bar.assigned(60.00004), Log{}) << "differs in the fifth decimal only";
    EXPECT_EQ(bar.assigned(60.0001), (Log{"Change 60", "Value", "draw 60.0001"}));
}

TEST(PrivateScrollTest, SuppressionServesOneAssignmentThatIsNotBlocked) {
    Recorder bar;
    bar.BlockVS(true);
    EXPECT_EQ(bar.assigned(1), (Log{"Value", "draw 1"}));
    bar.BlockVS(true);
    bar.Value(1);
    EXPECT_EQ(bar.assigned(2), (Log{"Change 1", "Value", "draw 2"}))
        << "an assignment of the same value uses it up";
    bar.BlockVS(true);
    bar.BlockValue(true);
    EXPECT_EQ(bar.assigned(3), Log{});
    bar.BlockValue(false);
    EXPECT_EQ(bar.assigned(3), (Log{"Value", "draw 3"}))
        << "a blocked assignment is ignored entirely";
}

TEST(PrivateScrollTest, ValueIsKeptWithinTheBounds) {
    Recorder bar;
    bar.Value(1000);
    EXPECT_EQ(bar.assigned(101), Log{}) << "what is stored would not differ";
    bar.Max(80);
    EXPECT_EQ(bar.log, (Log{"Max", "draw 100", "Change 100", "Value", "draw 80"}));
    bar.BlockVS(true);
    bar.Min(-5);
    EXPECT_EQ(bar.assigned(-6), (Log{"Value", "draw -5"})) << "not moved by Min";
    bar.Min(200);
    EXPECT_EQ(bar.Value(), FixedPoint(200)) << "Min above Max: nothing to scroll, at Min";
    EXPECT_EQ(bar.assigned(90), Log{});
    bar.Max(300);
    bar.Change = [&](const FixedPoint&) {
        bar.Change = {};
        bar.Max(270);
    };
    bar.Value(290);
    EXPECT_EQ(bar.Value(), FixedPoint(270)) << "moved by a handler of the assignment itself";
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
    EXPECT_THROW(bar.arrowLength(-1), RuntimeFailure);
    EXPECT_EQ(bar.log, Log{});
}

TEST(PrivateScrollTest, StoresEighteenKeysInOrder) {
    Recorder bar(Axis::Horizontal);
    const PropertyBag bag{{"ArrowColor", 1},       {"BackColor", 2},
                          {"BorderColor", 3},      {"Enabled", false},
                          {"EnableWheel", false},  {"FrontColor", 4},
                          {"LargeChange", 20},     {"Max", 900},
                          {"Min", -900},           {"ScrollWidth", 11},
                          {"SmallChange", 2},      {"Value", -800},
                          {"WheelChange", 5},      {"MouseHoverColor", -2147483633},
                          {"DownColor", 6},        {"MouseInterval", 50},
                          {"LargeChangeColor", 7}, {"UnRefreshControl", false}};
    bar.ReadProperties(bag);
    EXPECT_EQ(bar.log, Log{"draw -800"}) << "neither Change nor a notice";
    EXPECT_EQ(bar.WriteProperties(), bag);
    EXPECT_EQ(bar.MouseHoverColor(), 0x8000000FU);
    EXPECT_EQ(bar.DownColor(), 6U);
    Recorder vertical;
    vertical.ReadProperties(bag);
    EXPECT_EQ(vertical.arrowLength(), 10) << "its arrows have a key of their own";

    bar.BlockValue(true);
    bar.InitProperties();
    EXPECT_FALSE(bar.BlockValue());
    EXPECT_TRUE(bar.WriteProperties().entries().empty()) << "a fresh bar is one of defaults";
    EXPECT_EQ(bar.FrontColor(), 0xF0D0BFU);
    EXPECT_EQ(bar.DownColor(), 0xBE9E8DU);
    EXPECT_EQ(bar.LargeChangeColor(), 0xBE9E8DU);
}

TEST(PrivateScrollTest, ABagThatCannotBeTakenAltersNothing) {
    Recorder bar;
    EXPECT_THROW(bar.ReadProperties({{"Max", 300}, {"SmallChange", -1}}), RuntimeFailure);
    EXPECT_THROW(bar.ReadProperties({{"Max", 300}, {"DownColor", "blue"}}), RuntimeFailure);
    EXPECT_EQ(bar.Max(), 100);
    bar.ReadProperties({{"Max", 10}, {"Value", 2147483647}});
    EXPECT_EQ(bar.Value(), FixedPoint(10));
    bar.Value(8.5);
    Recorder copy;
    copy.ReadProperties(bar.WriteProperties());
    EXPECT_EQ(copy.Value(), FixedPoint(8)) << "stored as a whole number, halves to even";
}

}  // namespace
}  // namespace velvox
