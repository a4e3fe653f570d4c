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

TEST(PrivateScrollTest, ABlockingHandlerMayAssign) {
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

TEST(PrivateScrollTest, AHandlerMayMoveTheBounds) {
    tsPrivateScroll bar;
    bool moved = false;
    bar.Change = [&](const FixedPoint&) {
        if (std::exchange(moved, true)) return;
        bar.Max(70);
    };
    bar.Value(90);
    EXPECT_EQ(bar.Value(), FixedPoint(70));
}

TEST(PrivateScrollTest, SettersStoreNotifyAndDraw) {
    Recorder bar;
    bar.DownColor(0x8000000F);
    EXPECT_EQ(bar.log, (Log{"DownColor", "draw 50"}));
    bar.log.clear();
    bar.UnRefreshControl(false);
    bar.SmallChange(4);
    bar.Value(51);
    EXPECT_EQ(bar.log, (Log{"UnRefreshControl", "SmallChange", "Change 50", "Value"}))
        << "drawing waits for Refresh";
    bar.log.clear();
    bar.UnRefreshControl(true);
    EXPECT_EQ(bar.log, (Log{"UnRefreshControl", "draw 51"}));
    bar.log.clear();

    try {
        bar.LargeChange(-1);
        FAIL();
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.fault(), Fault::InvalidProperty);
    }
    EXPECT_THROW(bar.MouseInterval(-1), RuntimeFailure);
    EXPECT_THROW(bar.arrowLength(-1), RuntimeFailure);
    EXPECT_EQ(bar.LargeChange(), 10);
    EXPECT_EQ(bar.log, Log{});

    Recorder horizontal(Axis::Horizontal);
    bar.arrowLength(3);
    horizontal.arrowLength(3);
    EXPECT_EQ(bar.log.front(), "ScrollHeight");
    EXPECT_EQ(horizontal.log.front(), "ScrollWidth");
}

TEST(PrivateScrollTest, StoresEighteenKeysInOrder) {
    Log keys;
    std::int32_t number = 0;
    Recorder bar(Axis::Horizontal);
    EXPECT_TRUE(bar.writeProperties().entries().empty()) << "defaults are not stored";

    PropertyBag other{{"arrowcolor", 1},       {"backcolor", 2},
                      {"bordercolor", 3},      {"enabled", false},
                      {"enablewheel", false},  {"frontcolor", 4},
                      {"largechange", 20},     {"max", 900},
                      {"min", -900},           {"scrollwidth", 11},
                      {"smallchange", 2},      {"value", -800},
                      {"wheelchange", 5},      {"mousehovercolor", -2147483633},
                      {"downcolor", 6},        {"mouseinterval", 50},
                      {"largechangecolor", 7}, {"unrefreshcontrol", false}};
    bar.readProperties(other);
    EXPECT_EQ(bar.log, Log{"draw -800"}) << "neither Change nor a notice";
    EXPECT_EQ(bar.MouseHoverColor(), 0x8000000FU);
    EXPECT_EQ(bar.Value(), FixedPoint(-800));
    const PropertyBag written = bar.writeProperties();
    for (const auto& entry : written.entries()) keys.push_back(entry.key);
    EXPECT_EQ(keys, (Log{"ArrowColor", "BackColor", "BorderColor", "Enabled", "EnableWheel",
                         "FrontColor", "LargeChange", "Max", "Min", "ScrollWidth", "SmallChange",
                         "Value", "WheelChange", "MouseHoverColor", "DownColor", "MouseInterval",
                         "LargeChangeColor", "UnRefreshControl"}));
    for (const auto& entry : written.entries())
        EXPECT_EQ(entry.value, other.entries()[static_cast<std::size_t>(number++)].value)
            << entry.key;

    // The vertical bar has a key of its own for its arrows.
    Recorder vertical;
    vertical.readProperties(written);
    EXPECT_EQ(vertical.arrowLength(), 10);
    EXPECT_EQ(vertical.WheelChange(), 5);
}

TEST(PrivateScrollTest, DefaultsOfAFreshBar) {
    Recorder bar;
    bar.readProperties({{"Value", 1}, {"ArrowColor", 0}, {"Max", 3}});
    bar.BlockValue(true);
    bar.initProperties();
    EXPECT_FALSE(bar.BlockValue());
    EXPECT_EQ(bar.ArrowColor(), 0xFFFFFFU);
    EXPECT_EQ(bar.BackColor(), 0xFFFFFFU);
    EXPECT_EQ(bar.BorderColor(), 0xFF8080U);
    EXPECT_EQ(bar.FrontColor(), 0xF0D0BFU);
    EXPECT_EQ(bar.MouseHoverColor(), 0xFFFFFFU);
    EXPECT_EQ(bar.DownColor(), 0xBE9E8DU);
    EXPECT_EQ(bar.LargeChangeColor(), 0xBE9E8DU);
    EXPECT_TRUE(bar.Enabled() && bar.EnableWheel() && bar.UnRefreshControl());
    EXPECT_EQ(bar.Min(), 0);
    EXPECT_EQ(bar.Max(), 100);
    EXPECT_EQ(bar.Value(), FixedPoint(50));
    EXPECT_EQ(bar.SmallChange(), 1);
    EXPECT_EQ(bar.LargeChange(), 10);
    EXPECT_EQ(bar.WheelChange(), 3);
    EXPECT_EQ(bar.MouseInterval(), 100);
    EXPECT_EQ(bar.arrowLength(), 10);
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
