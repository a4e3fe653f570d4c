// Parses HTML fragments as the result pane does, and reads back the RTF stream that the pane writes
// for them.
#include <algorithm>
#include <cstring>

#include "app/pane/html_fragment.h"
#include "app/pane/rich_text.h"
#include "base/utf16.h"
#include "base/web_address.h"
#include "tests/fuzz/fuzz_targets.h"

namespace velvox::fuzz {
namespace {

void checkRuns(const HtmlFragment& fragment) {
    std::size_t at = 0;
    for (const TextRun& run : fragment.runs) {
        require(run.begin == at && run.end > at, "the runs do not cover the text");
        require(run.look.face < fragment.faces.size(), "a face that is not there");
        require(
            run.link >= TextRun::noLink && run.link < static_cast<int>(fragment.addresses.size()),
            "a link that is not there");
        at = run.end;
    }
    require(at == fragment.text.size(), "the runs do not cover the text");
    for (const std::string_view twice : {"  ", " \n", "\n "})
        require(fragment.text.find(twice) == std::string::npos, "white space is not collapsed");
}

/// The text of an RTF stream, without the groups of its header.
std::u16string readBack(std::string_view rtf) {
    std::u16string text;
    int depth = 0;
    for (std::size_t i = 0; i < rtf.size(); ++i) {
        const char c = rtf[i];
        require(c == '\n' || (c >= ' ' && c <= '~'), "the stream is not plain ASCII");
        if (c == '{' || c == '}') {
            depth += c == '{' ? 1 : -1;
            require(depth >= 1 || i + 1 == rtf.size(), "the stream ends early");
        } else if (c == '\\' && (rtf[i + 1] < 'a' || rtf[i + 1] > 'z')) {
            text += static_cast<char16_t>(rtf[++i]);
        } else if (c == '\\') {
            // A control word includes the blank after it, or the substitute character after "\u".
            const std::size_t end = rtf.find_first_of(" ?\n\\{};", i + 1);
            const std::string word(rtf.substr(i + 1, end - i - 1));
            if (word == "par") text += u'\n';
            if (word[0] == 'u' && word.find_first_of("-0123456789") == 1)
                text += static_cast<char16_t>(std::stoi(word.substr(1)));
            i = rtf[end] == ' ' || rtf[end] == '?' ? end : end - 1;
        } else if (c != '\n' && depth == 1) {
            text += static_cast<char16_t>(c);
        }
    }
    require(depth == 0, "a group of the stream is open");
    return text;
}

/// The visible characters, each with the address of its link. Blanks and breaks are left out,
/// because long lines are broken.
using Shown = std::vector<std::pair<char16_t, std::string_view>>;

void show(Shown& shown, char16_t c, std::string_view address) {
    if (c <= u' ' || c == 0x7F) return;
    shown.emplace_back(c >= 0xFFF9 ? char16_t{0xFFFD} : c, address);
}

Shown shownOf(const HtmlFragment& fragment) {
    Shown shown;
    for (const TextRun& run : fragment.runs) {
        const auto text = std::string_view(fragment.text).substr(run.begin, run.end - run.begin);
        std::string_view address;
        if (run.link != TextRun::noLink)
            address = fragment.addresses[static_cast<std::size_t>(run.link)];
        for (const char16_t c : toUtf16(text)) show(shown, c, address);
    }
    return shown;
}

void checkStream(const HtmlFragment& fragment) {
    const RichText rich = toRichText(fragment, {});
    const std::u16string text = readBack(rich.rtf);
    require(text.size() == rich.length, "another length");
    require(rich.lines == 1 + static_cast<std::size_t>(std::count(text.begin(), text.end(), u'\n')),
            "another number of lines");
    std::size_t end = 0;
    for (const TextLink& link : rich.links) {
        require(link.begin >= end && link.end > link.begin && link.end <= rich.length,
                "links overlap or are empty");
        end = link.end;
    }
    if (rich.truncated) {
        require(text.ends_with(toUtf16(restNotice)), "the notice is missing");
        return;
    }
    Shown streamed;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const TextLink* link = linkAt(rich.links, i);
        show(streamed, text[i], link ? std::string_view(link->address) : "");
    }
    require(streamed == shownOf(fragment), "another text is streamed, or it leads elsewhere");
    const auto isHidden = [](char c) { return (c >= 0 && c < ' ' && c != '\n') || c == 0x7F; };
    if (std::none_of(fragment.text.begin(), fragment.text.end(), isHidden))
        require(text.find(u"\n ") == text.npos, "a line begins with a blank");
    const auto breaks = std::count(fragment.text.begin(), fragment.text.end(), '\n');
    if (fragment.text.size() <= longText)
        require(rich.lines == 1 + static_cast<std::size_t>(breaks), "a short text is broken");
    else
        for (std::size_t at = 0, next; at < text.size(); at = next + 1) {
            next = std::min(text.find(u'\n', at), text.size());
            require(next - at <= maxLineLength + 1, "a line is too long");
        }
}

}  // namespace

void html(std::string_view input) {
    const HtmlFragment fragment = parseHtmlFragment(input);
    checkRuns(fragment);
    checkStream(fragment);
    // A text without tags and character references keeps its words.
    if (input.find_first_of("<&") == input.npos) {
        std::string words = fragment.text;
        std::erase(words, ' ');
        std::string expected(input);
        std::erase_if(expected, [](char c) { return c != '\0' && std::strchr(" \t\r\n\f", c); });
        require(words == expected, "plain text does not stay");
    }
    for (const std::string& address : fragment.addresses)
        require(!isWebAddress(address) || address[0] == 'h' || address[0] == 'H',
                "another scheme is opened");
}

}  // namespace velvox::fuzz
