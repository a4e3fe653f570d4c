#include "base/property_bag.h"

#include <gtest/gtest.h>

namespace velvox {
namespace {

TEST(PropertyBagTest, BooleansAndNumbersConvertAndKeysMatchInAnyCase) {
    PropertyBag bag{{"flag", true}, {"number", 5}};
    EXPECT_EQ(bag.readNumber("Flag", 0), -1);
    EXPECT_TRUE(bag.readBool("Number", false));
    bag.write("FLAG", 7, 3);
    EXPECT_EQ(bag, (PropertyBag{{"number", 5}, {"FLAG", 7}}));
    bag.write("flag", 3, 3);
    EXPECT_EQ(bag, (PropertyBag{{"number", 5}})) << "a default is not stored";
}

}  // namespace
}  // namespace velvox
