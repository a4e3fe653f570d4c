// The Download button and the link handler of the whole main window.
#include <algorithm>

#include "tests/app/form1_fixture.h"
#include "tests/fuzz/fuzz_targets.h"

namespace velvox::fuzz {
namespace {

bool has(const std::string& text, std::string_view mark) {
    return text.find(mark) != text.npos;
}

}  // namespace

// The sections are an address and replies. In a comic book's yields, Download is pressed again at
// a page that depends on the address's length.
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

    bool matches = false;
    for (const std::string_view pattern :
         {"youtube.com/watch?v=", "clip.vn/watch/", "sevenload.com/videos", "veoh.com/videos/",
          "metacafe.com/watch/", "vuilen.com/view_book_detail.php?bookid="})
        matches = matches || has(parts[0], pattern);
    const std::string effects = fixture.log.take();
    require(effects.starts_with("outer.Top=600\nouter.Visible True\nnavigate about:blank\npane "
                                "<font face='tahoma' size='2'>Please wait...</font>\n"),
            "another start");
    require(form.isButton1.Enabled(), "the result area cannot be closed");
    require(form.outer.Visible() == matches, "the result area is in the other state");
    require(effects.ends_with("exclamation Please Enter A Valid URL...\nouter.Visible False\n") !=
                matches,
            "the message is wrong");
}

void links(std::string_view input) {
    testing::Form1Fixture fixture;
    fixture.browser.location = input;
    fixture.form.linkin.Enabled(false);
    fixture.log.take();
    fixture.browser.DocumentComplete();
    const std::string effects = fixture.log.take();
    const std::string location(input);

    std::string expected;
    // An address of the one site that lacks a part ends the handler before it looks at the other.
    bool failed = false;
    if (has(location, "metacafe.com/f/")) {
        const auto at = location.find("mediaURL=");
        const auto end = at == location.npos ? at : location.find(".flv", at);
        failed = end == location.npos;
        if (!failed) {
            std::string link = location.substr(at + 9, end + 4 - (at + 9));
            for (const auto& [code, meant] :
                 {std::pair{"%20", " "}, std::pair{"%5B", "["}, std::pair{"%5D", "]"}}) {
                for (auto found = link.find(code); found != link.npos;
                     found = link.find(code, found + 1))
                    link.replace(found, 3, meant);
            }
            expected = "linkin.Enabled True\npane ";
            expected +=
                has(link, "video_removed.flv")
                    ? "<font face='tahoma' size=2 color='red'>Video Removed From "
                      "Server...</font>\n"
                    : "<a href='" + link + "'><font face='tahoma' size=2>Download</font></a>\n";
        }
    }
    if (const auto at = location.find("youtube.com/"); !failed && at != location.npos) {
        if (const auto end = location.find("?video_id=", at); end != location.npos) {
            const std::string piece = location.substr(at + 12, end - at - 12);
            std::string link = location;
            for (auto found = link.find(piece); !piece.empty() && found != link.npos;
                 found = link.find(piece, found + 9))
                link.replace(found, piece.size(), "get_video");
            expected += "pane <a href='" + link +
                        "'><font face='tahoma' size=2>Download</font></a>\nlinkin.Enabled True\n";
        }
    }
    // The log writes line breaks of an address in another form.
    const bool oneLine = location.find_first_of("\r\n") == location.npos;
    require(!oneLine || effects == expected, "other effects");
    require(fixture.form.linkin.Enabled() == !expected.empty(),
            "the address box is left in the other state");
}

}  // namespace velvox::fuzz
