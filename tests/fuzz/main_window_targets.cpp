// The Download button and the link handler of the main window.
#include "tests/app/form1/form1_fixture.h"
#include "tests/fuzz/fuzz_targets.h"

namespace velvox::fuzz {
namespace {

bool has(const std::string& text, std::string_view mark) {
    return text.find(mark) != text.npos;
}

}  // namespace

// The sections are an address and replies. During one yield of a comic book, which the address's
// length selects, Download is pressed again.
void dispatch(std::string_view input) {
    const std::vector<std::string> parts = sections(input);
    testing::Form1Fixture fixture;
    Form1& form = fixture.form;
    fixture.transfer.replies.assign(parts.begin() + 1, parts.end());
    form.linkin.Text(parts[0]);
    fixture.log.take();
    std::size_t pagesBefore = parts[0].size() % 4;
    fixture.desktop.onYield = [&] {
        if (pagesBefore-- == 0) form.UniXPButton1.activate();
    };
    form.UniXPButton1.activate();

    const std::string effects = fixture.log.take();
    // Every catcher disables the address box, so this effect shows that a catcher has run.
    const bool caught = has(effects, "linkin.Enabled False");
    require(form.isButton1.Enabled(), "the result area cannot be closed");
    require(form.outer.Visible() == caught, "the result area is in the other state");
    require(effects.ends_with("exclamation Please Enter A Valid URL...\nouter.Visible False\n") !=
                caught,
            "the message is wrong");
}

void links(std::string_view input) {
    constexpr std::string_view opening = "<a href='";
    constexpr std::string_view closing = "'><font face='tahoma' size=2>Download</font></a>";
    testing::Form1Fixture fixture;
    fixture.browser.location = input;
    fixture.form.linkin.Enabled(false);
    fixture.browser.DocumentComplete();

    const std::string location(input);
    const std::string& shown = fixture.pane.shown;
    require(fixture.form.linkin.Enabled() == !shown.empty(),
            "the address box is left in the other state");
    const bool youtube = has(location, "youtube.com/") && has(location, "?video_id=");
    const bool metacafe = has(location, "metacafe.com/f/") && has(location, "mediaURL=");
    require(shown.empty() || youtube || metacafe, "another page gives a link");
    if (shown.empty() || has(shown, "Video Removed From Server...")) return;
    require(shown.starts_with(opening) && shown.ends_with(closing), "no link is shown");
    if (youtube) return;
    const std::string link =
        shown.substr(opening.size(), shown.size() - opening.size() - closing.size());
    require(link.ends_with(".flv"), "the link is no file");
    for (const auto* code : {"%20", "%5B", "%5D"})
        require(!has(link, code), "a blank or bracket stays encoded");
}

}  // namespace velvox::fuzz
