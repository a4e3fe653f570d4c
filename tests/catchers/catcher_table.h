// Runs a catcher on an address and the replies to its fetches and compares everything that it does
// with the ordered list of what it should do.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/app/form1_fixture.h"

namespace velvox::testing {

struct CatcherRow {
    std::string name;
    std::string address;
    std::vector<Reply> replies;
    std::string effects;
    bool browserRefuses = false;
};

inline const Reply failure = std::nullopt;

inline void expectEffects(void (Form1::*catcher)(), const std::vector<CatcherRow>& rows) {
    for (const CatcherRow& row : rows) {
        SCOPED_TRACE(row.name);
        Form1Fixture fixture;
        fixture.browser.refusing = row.browserRefuses;
        EXPECT_EQ(fixture.run(catcher, row.address, row.replies), row.effects);
        EXPECT_TRUE(fixture.transfer.replies.empty()) << "a reply was not asked for";
    }
}

}  // namespace velvox::testing
