// Runs catchers on an address and replies, the sections of the input. The tests check the exact
// texts for good and bad pages. These targets check what must hold for all bytes.
#include <algorithm>

#include "tests/app/form1/form1_fixture.h"
#include "tests/fuzz/fuzz_targets.h"

namespace velvox::fuzz {
namespace {

struct Run {
    Run(std::string_view input, void (Form1::*catcher)()) : parts(sections(input)) {
        fixture.log.recording = false;
        fixture.transfer.replies.assign(parts.begin() + 1, parts.end());
        form.linkin.Text(parts[0]);
        try {
            (form.*catcher)();
        } catch (const RuntimeFailure&) {
            failed = true;
        }
    }

    /// A catcher that handles its exceptions ends with a text in the pane. If a reply is missing,
    /// this is a red line. After a red line the address box is enabled, otherwise it is as the
    /// catcher leaves it after a success.
    void expectEnd(std::size_t fetches, bool enabledAfterSuccess) const {
        require(!failed, "a failure left the catcher's trap");
        require(isRed() || parts.size() > fetches, "a page is shown that did not come");
        require(form.linkin.Enabled() == (enabledAfterSuccess || isRed()),
                "the address box is left in the other state");
    }

    /// The first link leads to `base` followed by a part of a reply.
    void expectLinkFromReply(std::string_view base = "") const {
        constexpr std::string_view opening = "<a href='";
        const auto at = shown.find(opening);
        if (isRed() || at == std::string::npos) return;
        const std::string rest = shown.substr(at + opening.size());
        require(rest.starts_with(base), "the link leads elsewhere");
        // Only the part's bytes before `'>`, the end of the attribute, are compared.
        const auto size = rest.find("'>", base.size()) - base.size();
        const std::string piece = rest.substr(base.size(), size);
        require(std::any_of(parts.begin() + 1, parts.end(),
                            [&](const auto& reply) { return reply.find(piece) != reply.npos; }),
                "the link is not in the replies");
    }

    /// Unless a red line is shown, the preview shows the player for a part of the address.
    void expectPlayer(std::string_view before, std::string_view after) const {
        const std::string& player = fixture.browser.lastAddress;
        require(isRed() == player.empty(), "a player for a failure, or none for a success");
        if (isRed()) return;
        require(player.starts_with(before) && player.ends_with(after), "another player is loaded");
        const auto size = player.size() - before.size() - after.size();
        require(parts[0].find(player.substr(before.size(), size)) != std::string::npos,
                "the player's video is not in the address");
    }

    bool isRed() const { return shown.starts_with("<font face='tahoma' size='2' color='red'>"); }

    std::vector<std::string> parts;
    testing::Form1Fixture fixture;
    Form1& form = fixture.form;
    const std::string& shown = fixture.pane.shown;
    bool failed = false;
};

}  // namespace

void youtube(std::string_view input) {
    const Run run(input, &Form1::YoutubeCatcher);
    run.expectEnd(1, true);
    run.expectPlayer("http://www.youtube.com/v/", "");
}

void clip(std::string_view input) {
    const Run run(input, &Form1::ClipVNCatcher);
    run.expectEnd(1, true);
    run.expectLinkFromReply();
}

void sevenload(std::string_view input) {
    const Run run(input, &Form1::SevenLoad);
    run.expectEnd(2, false);
    run.expectLinkFromReply();
}

void veoh(std::string_view input) {
    const Run run(input, &Form1::veOH);
    run.expectEnd(1, true);
    run.expectLinkFromReply();
}

void metacafe(std::string_view input) {
    const Run run(input, &Form1::MetaCafe);
    run.expectEnd(0, false);
    run.expectPlayer("http://www.metacafe.com/fplayer/", "/lifted.swf?playerVars=autoPlay=yes");
}

void comic(std::string_view input) {
    const Run run(input, &Form1::ComicVuiLen);
    run.expectEnd(2, false);
    // The picture files of a comic book are in the folder of config.xml, which lists them.
    const std::string list = run.form.link2.Text();
    run.expectLinkFromReply(list.substr(0, list.rfind("config.xml")));
    require(run.isRed() || run.form.ketqua.Text().empty(), "the collector is not empty");
}

// This catcher handles no exceptions. It throws, with the address box disabled, or shows the links
// it has.
void google(std::string_view input) {
    const Run run(input, &Form1::GoogleCatcher);
    require(run.form.linkin.Enabled() == !run.failed, "the address box is left in the other state");
    require(run.failed || run.shown == run.form.ketqua.Text(), "something else is shown");
}

}  // namespace velvox::fuzz
