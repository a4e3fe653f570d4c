// Runs a catcher on an address with scripted replies and compares its effects, in their order, with
// the expected ones.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/app/form1/form1_fixture.h"
#include "tests/support/example_addresses.h"

namespace velvox::testing {

struct CatcherRow {
    std::string name;
    std::string address;
    std::vector<Reply> replies;
    std::string effects;
    bool browserRefuses = false;
};

/// Expects a site of the list, with the example that choosing it shows.
inline void expectListed(std::string_view entry, std::string_view example) {
    Form1Fixture fixture;
    fixture.form.Form_Load();
    for (int i = 0; i < static_cast<int>(exampleAddresses.size()); ++i) {
        fixture.form.ds.ListIndex(i);
        if (fixture.form.ds.Text() != entry) continue;
        EXPECT_EQ(fixture.form.vd.Caption(), example);
        return;
    }
    ADD_FAILURE() << entry << " is not in the list";
}

inline const Reply failure = std::nullopt;

/// The last effect of a catcher that throws.
inline const std::string thrown = "thrown\n";

inline std::string fetchThroughLink2(const std::string& address) {
    return "link2=" + address + "\nfetch " + address + "\n";
}

/// The effects of a catcher that handles an exception: the address box is enabled and a text is
/// shown in red.
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
