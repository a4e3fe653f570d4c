// Runs a catcher on an address and the replies to its fetches and compares everything that it does
// with the ordered list of what it should do.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/app/form1/form1_fixture.h"

namespace velvox::testing {

struct CatcherRow {
    std::string name;
    std::string address;
    std::vector<Reply> replies;
    std::string effects;
    bool browserRefuses = false;
};

inline const Reply failure = std::nullopt;

/// Stands last in the effects of a catcher that lets a failure through.
inline const std::string thrown = "thrown\n";

inline std::string fetchThroughLink2(const std::string& address) {
    return "link2=" + address + "\nfetch " + address + "\n";
}

/// How a trap ends a catcher.
inline std::string redLine(const std::string& text) {
    return "linkin.Enabled True\n"
           "pane <font face='tahoma' size='2' color='red'>" +
           text + "</font>\n";
}

inline void expectEffects(void (Form1::*catcher)(), const std::vector<CatcherRow>& rows) {
    for (const CatcherRow& row : rows) {
        SCOPED_TRACE(row.name);
        Form1Fixture fixture;
        fixture.browser.refusing = row.browserRefuses;
        std::string effects;
        try {
            effects = fixture.run(catcher, row.address, row.replies);
        } catch (const RuntimeFailure&) {
            effects = fixture.log.take() + thrown;
        }
        EXPECT_EQ(effects, row.effects);
        EXPECT_TRUE(fixture.transfer.replies.empty()) << "a reply was not asked for";
    }
}

}  // namespace velvox::testing
