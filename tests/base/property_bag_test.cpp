#include "base/property_bag.h"

#include <gtest/gtest.h>

#include "base/runtime_failure.h"

namespace velvox {
namespace {

TEST(PropertyBagTest, MatchesKeysWithoutCaseAndConverts) {
    const PropertyBag bag{{"usecustomcolors", true}, {"style", 5}, {"caption", "Close"}};
    EXPECT_EQ(bag.readNumber("USeCustomColors", 0), -1);
    EXPECT_TRUE(bag.readBool("Style", false));
    EXPECT_EQ(bag.readNumber("IconAlign", 1), 1);
    EXPECT_THROW(bag.readNumber("Caption", 0), RuntimeFailure);
    EXPECT_THROW(bag.readText("Style", ""), RuntimeFailure);
}

TEST(PropertyBagTest, WritesInOrderAndOmitsDefaults) {
    PropertyBag bag;
    bag.write("Style", 5, 3);
    bag.write("ToolTipIcon", 0);
    bag.write("STYLE", 7, 3);
    const PropertyBag expected{{"ToolTipIcon", 0}, {"STYLE", 7}};
    EXPECT_EQ(bag, expected);
    bag.write("style", 3, 3);
    EXPECT_EQ(bag.entries().size(), 1U);
}

}  // namespace
}  // namespace velvox
