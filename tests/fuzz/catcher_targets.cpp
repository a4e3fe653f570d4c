// Catchers on an address and its replies, sections of the input. What each shows is compared with
// what plain string operations, counted from 0, cut out of the same texts.
#include <algorithm>
#include <optional>

#include "tests/app/form1_fixture.h"
#include "tests/fuzz/fuzz_targets.h"

namespace velvox::fuzz {
namespace {

constexpr auto npos = std::string::npos;

/// The input, and how a catcher ended.
struct Run {
    Run(std::string_view input, void (Form1::*catcher)()) : parts(sections(input)) {
        using namespace testing;
        fixture.log.recording = false;
        fixture.transfer.replies.assign(parts.begin() + 1, parts.end());
        fixture.form.linkin.Text(parts[0]);
        try {
            (fixture.form.*catcher)();
        } catch (const RuntimeFailure&) {
            failed = true;
        }
    }

    const std::string& address() const { return parts[0]; }
    /// Text of a reply; ends the comparison where there was none.
    const std::string* reply(std::size_t index) const {
        return index + 1 < parts.size() ? &parts[index + 1] : nullptr;
    }

    /// A trapped catcher shows the expected text or its red line, and leaves the box as it should.
    void expect(const std::optional<std::string>& html, bool enabledAfterSuccess,
                const char* red) const {
        require(!failed, "a failure left the catcher's trap");
        const std::string shown =
            html ? *html
                 : "<font face='tahoma' size='2' color='red'>" + std::string(red) + "</font>";
        require(fixture.pane.shown == shown, "another text is shown");
        require(fixture.form.linkin.Enabled() == (enabledAfterSuccess || !html),
                "the address box is left in the other state");
    }

    std::vector<std::string> parts;
    testing::Form1Fixture fixture;
    bool failed = false;
};

/// From `from` to the next `mark`, which must be there, less what comes before `skip` bytes and
/// the last `less` ones.
std::optional<std::string> cut(const std::string& text, const std::string& marker,
                               const std::string& end, std::size_t skip, std::ptrdiff_t more,
                               std::size_t from = 0) {
    const auto at = text.find(marker, from);
    if (at == npos) return {};
    const auto stop = text.find(end, at);
    if (stop == npos) return {};
    const auto count = static_cast<std::ptrdiff_t>(stop - at - skip) + more;
    if (count < 0) return {};
    return text.substr(std::min(at + skip, text.size()), static_cast<std::size_t>(count));
}

std::size_t occurrences(const std::string& text, const std::string& mark) {
    std::size_t count = 0;
    for (auto at = text.find(mark); at != npos; at = text.find(mark, at + mark.size())) ++count;
    return count;
}

std::string without(std::string text, char unwanted) {
    std::string rest;
    for (const char c : text)
        if (c != unwanted) rest += c;
    return rest;
}

}  // namespace

void youtube(std::string_view input) {
    const Run run(input, &Form1::YoutubeCatcher);
    const std::string* page = run.reply(0);
    std::optional<std::string> html;
    if (page && page->find("contained a malformed") != npos) {
        html =
            "<font face='tahoma' size='2' color='red'>Cannot Validate Request | The Video Might Be "
            "Removed From Server..</font>";
        require(run.fixture.browser.lastAddress.empty(), "a bad video is loaded");
    } else if (page) {
        html = "<font face='tahoma' size='2' >Getting Preview and Download Url..</font>";
        require(run.fixture.browser.lastAddress ==
                    "http://www.youtube.com/v/" + run.address().substr(run.address().find('=') + 1),
                "another player is loaded");
    }
    run.expect(html, true, "Video Unavilable..");
}

void clip(std::string_view input) {
    const Run run(input, &Form1::ClipVNCatcher);
    const auto code = cut(run.address(), "http://www.clip.vn/watch/", ",", 25, 0);
    std::optional<std::string> html;
    if (const std::string* feed = run.reply(0); code && feed) {
        const auto count = occurrences(*feed, ".flv");
        std::size_t from = 0;
        html = "";
        for (std::size_t i = 0; i < count && html; ++i) {
            const auto url = cut(*feed, "<enclosure url=", ".flv", 16, 4, from);
            if (url)
                *html += "<a href='" + *url + "'><font face='tahoma' size='2'>Download Clip " +
                         std::to_string(count) + "</a><br></font>";
            else
                html.reset();
            from = feed->find(".flv", feed->find("<enclosure url=", from));
        }
    }
    run.expect(html, true, "Video Unavilable..");
}

void sevenload(std::string_view input) {
    const Run run(input, &Form1::SevenLoad);
    const std::string* page = run.reply(0);
    const std::string* details = run.reply(1);
    if (page && page->find("The photo/video could not be found") != npos) {
        run.expect(
            "<font face='tahoma' size='2' color='red'>Video/Photo Could Not Be Found | The "
            "File Mightbe Removed...</font>",
            true, "");
        return;
    }
    std::optional<std::string> html;
    if (page && details) {
        const auto sess =
            cut(without(without(*page, '"'), ' '), "fo.addVariable(sess,", ");", 20, 0);
        std::string lower = *details;
        for (char& c : lower) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
        const auto at = lower.find("url=\"");
        const auto url = at == npos ? std::nullopt : cut(details->substr(at), "", ".flv", 5, 4);
        if (sess && url)
            html = "<a href='" + *url + "'><font face='tahoma' size='2'>Download</a></font>";
        if (const auto video = run.address().find("/videos/"); sess && video != npos)
            require(run.fixture.form.link2.Text() == "http://api.sevenload.com/api/player/id/" +
                                                         run.address().substr(video + 8, 7) +
                                                         "/locale/en_GB/sess/" + *sess,
                    "another player is asked");
    }
    run.expect(html, false, "Video Unavilable...");
}

void veoh(std::string_view input) {
    const Run run(input, &Form1::veOH);
    std::string address = run.address();
    if (address.find('?') == npos) address += '?';
    require(run.fixture.form.linkin.Text() == address, "another address is in the box");
    const auto id = cut(address, "/videos/", "?", 8, 0);
    std::optional<std::string> html;
    if (const std::string* page = run.reply(0); id && page) {
        const auto flv = cut(*page, "fullPreviewHashPath=", "\r\n", 21, -2);
        const auto mp4 = cut(*page, "ipodLink=", "\r\n", 10, -2);
        const bool both = page->find(".mp4") != npos;
        if (flv && (mp4 || !both))
            html = "<font face='tahoma' size='2'><a href='" + *flv + "'>Download FLV</a>" +
                   (both ? "<br><a href='" + *mp4 + "'>Download MP4</a>" : "") + "</font>";
    }
    run.expect(html, true, "Download Failed !");
}

void metacafe(std::string_view input) {
    const Run run(input, &Form1::MetaCafe);
    std::optional<std::string> html;
    if (const auto at = run.address().find("/watch/"); at != npos) {
        html = "<font face='tahoma' size='2'>Sending URL Request...</font>";
        require(run.fixture.browser.lastAddress == "http://www.metacafe.com/fplayer/" +
                                                       run.address().substr(at + 7, 6) +
                                                       "/lifted.swf?playerVars=autoPlay=yes",
                "another player is loaded");
    }
    run.expect(html, false, "Download Failed !");
}

void comic(std::string_view input) {
    const Run run(input, &Form1::ComicVuiLen);
    const std::string* page = run.reply(0);
    const std::string* config = run.reply(1);
    std::optional<std::string> html;
    if (page && config) {
        const auto source = cut(*page, "FRAMEBORDER='0' src='", "'></iframe>", 21, 0);
        const auto reader = source ? source->find("index.php") : npos;
        const auto count = occurrences(*config, " </page>");
        if (reader != npos && count > 0 && count <= 32767) html = "";
        std::size_t from = 0;
        for (std::size_t k = 1; k <= count && html; ++k) {
            const auto name = cut(*config, "<page> ", " </page>", 7, 0, from);
            if (name)
                *html += "<font face='tahoma' size='2'><a href='" + source->substr(0, reader) +
                         *name + "'>Download Image " + std::to_string(k) + "<a></font><br>";
            else
                html.reset();
            from = config->find(" </page>", config->find("<page> ", from));
        }
    }
    run.expect(html, false, "Download Failed !");
    require(!html || run.fixture.form.ketqua.Text().empty(), "the collector is not empty");
}

// This catcher has no trap: it ends in a failure, with the box disabled, or shows what it has.
void google(std::string_view input) {
    const Run run(input, &Form1::GoogleCatcher);
    const Form1& form = run.fixture.form;
    require(form.linkin.Enabled() == !run.failed, "the address box is left in the other state");
    if (run.failed) return;
    require(run.fixture.pane.shown == form.ketqua.Text(), "something else is shown");
    const auto at = run.address().find("docid=");
    if (at != npos && form.link2.Text().starts_with("http://video.google.com/videohosted?docid="))
        require(form.link2.Text().ends_with("=" + run.address().substr(at + 6)),
                "another video is asked for");
}

}  // namespace velvox::fuzz
