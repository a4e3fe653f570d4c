#include "controlkit/private_scroll.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/runtime_failure.h"
#include "tests/support/property_table.h"

namespace velvox {
namespace {

using testing::Property;
using testing::property;

using Log = std::vector<std::string>;

/// A scroll bar that records its events in their order.
class Recorder : public tsPrivateScroll {
 public:
    explicit Recorder(Axis axis = Axis::Vertical) : tsPrivateScroll(axis) {
        Change = [this](const FixedPoint& value) { log.push_back("Change " + value.text()); };
        PropertyChanged = [this](std::string_view name) { log.emplace_back(name); };
    }

    using tsPrivateScroll::arrowLength;

    /// Assigns Value and returns the events.
    Log assigned(FixedPoint value) {
        log.clear();
        Value(value);
        return log;
    }

    PropertyBag written() const {
        PropertyBag bag;
        WriteProperties(bag);
        return bag;
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

/// All properties in stored order.
std::vector<Property<tsPrivateScroll>> properties() {
    using S = tsPrivateScroll;
    return {property("ArrowColor", &S::ArrowColor, &S::ArrowColor, 1),
            property("BackColor", &S::BackColor, &S::BackColor, 2),
            property("BorderColor", &S::BorderColor, &S::BorderColor, 3),
            property("Enabled", &S::Enabled, &S::Enabled, false),
            property("EnableWheel", &S::EnableWheel, &S::EnableWheel, false),
            property("FrontColor", &S::FrontColor, &S::FrontColor, 4),
            property("LargeChange", &S::LargeChange, &S::LargeChange, 0),
            property("Max", &S::Max, &S::Max, 900),
            property("Min", &S::Min, &S::Min, -900),
            property("ScrollWidth", &Recorder::arrowLength, &Recorder::arrowLength, 0),
            property("SmallChange", &S::SmallChange, &S::SmallChange, 0),
            property("Value", &S::Value, &S::Value, 51),
            property("WheelChange", &S::WheelChange, &S::WheelChange, 0),
            property("MouseHoverColor", &S::MouseHoverColor, &S::MouseHoverColor, -2147483633),
            property("DownColor", &S::DownColor, &S::DownColor, 6),
            property("MouseInterval", &S::MouseInterval, &S::MouseInterval, 0),
            property("LargeChangeColor", &S::LargeChangeColor, &S::LargeChangeColor, 7),
            property("UnRefreshControl", &S::UnRefreshControl, &S::UnRefreshControl, false)};
}

TEST(PrivateScrollTest, EachPropertyIsStoredNotifiedDrawnAndWritten) {
    PropertyBag all;
    for (const auto& p : properties()) {
        const bool isValue = p.key == std::string_view("Value");
        for (const bool draws : {true, false}) {
            Recorder bar(Axis::Horizontal);
            EXPECT_FALSE(p.isSet(bar)) << p.key << " by default";
            bar.UnRefreshControl(draws);
            bar.log.clear();
            p.set(bar);
            Log expected{p.key};
            if (isValue) expected.insert(expected.begin(), "Change 50");
            if (bar.UnRefreshControl() || isValue) expected.push_back("draw " + bar.Value().text());
            EXPECT_EQ(bar.log, expected);
            EXPECT_TRUE(p.isSet(bar)) << p.key;
        }
        all.write(p.key, p.value);
    }
    Recorder bar(Axis::Horizontal);
    bar.ReadProperties(all);
    EXPECT_EQ(bar.log, Log{"draw 51"}) << "neither Change nor a notice";
    for (const auto& p : properties()) EXPECT_TRUE(p.isSet(bar)) << p.key;
    EXPECT_EQ(bar.written(), all) << "in order, and what differs from its default";

    bar.BlockValue(true);
    bar.BlockVS(true);
    bar.InitProperties();
    EXPECT_FALSE(bar.BlockValue() || bar.BlockVS());
    EXPECT_TRUE(bar.written().entries().empty()) << "a fresh bar is one of defaults";
    EXPECT_EQ(bar.FrontColor(), 0xF0D0BFU);
    EXPECT_EQ(bar.BorderColor(), 0xFF8080U);
    for (const OleColour colour : {bar.DownColor(), bar.LargeChangeColor()})
        EXPECT_EQ(colour, 0xBE9E8DU);
    for (const OleColour colour : {bar.ArrowColor(), bar.BackColor(), bar.MouseHoverColor()})
        EXPECT_EQ(colour, 0xFFFFFFU);
    Recorder vertical;
    vertical.ReadProperties({{"ScrollHeight", 3}, {"ScrollWidth", 11}});
    EXPECT_EQ(vertical.arrowLength(), 3) << "its arrows have a key of their own";
}

TEST(PrivateScrollTest, ABagThatCannotBeTakenAltersNothing) {
    Recorder bar;
    for (const char* key :
         {"LargeChange", "SmallChange", "WheelChange", "MouseInterval", "ScrollHeight"})
        EXPECT_THROW(bar.ReadProperties({{"Max", 300}, {key, -1}}), RuntimeFailure) << key;
    EXPECT_THROW(bar.LargeChange(-1), RuntimeFailure);
    EXPECT_THROW(bar.arrowLength(-1), RuntimeFailure);
    EXPECT_THROW(bar.ReadProperties({{"Max", 300}, {"DownColor", "blue"}}), RuntimeFailure);
    EXPECT_EQ(bar.Max(), 100);
    EXPECT_EQ(bar.log, Log{});
    bar.ReadProperties({{"Max", 10}, {"Value", 2147483647}});
    EXPECT_EQ(bar.Value(), FixedPoint(10));
    bar.Value(8.5);
    Recorder copy;
    copy.ReadProperties(bar.written());
    EXPECT_EQ(copy.Value(), FixedPoint(8)) << "stored as a whole number, halves to even";
}

}  // namespace
}  // namespace velvox
