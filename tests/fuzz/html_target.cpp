// HTML fragments as the result pane reads them, and the stream that it makes of them, which is
// read back here.
#include <algorithm>

#include "app/html_fragment.h"
#include "app/rich_text.h"
#include "base/utf16.h"
#include "tests/fuzz/fuzz_targets.h"

namespace velvox::fuzz {
namespace {

void checkRuns(const HtmlFragment& fragment) {
    std::size_t at = 0;
    require(!fragment.faces.empty(), "no face");
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

/// Text of a stream, groups of the header left out.
std::u16string readBack(std::string_view rtf) {
    std::u16string text;
    int depth = 0;
    for (std::size_t i = 0; i < rtf.size(); ++i) {
        const char c = rtf[i];
        require(c == '\n' || (c >= ' ' && c <= '~'), "the stream is not plain ASCII");
        if (c == '{' || c == '}') {
            depth += c == '{' ? 1 : -1;
            require(depth >= 1 || i + 1 == rtf.size(), "the stream ends early");
        } else if (c == '\\') {
            const std::size_t begin = ++i;
            while (i < rtf.size() && rtf[i] >= 'a' && rtf[i] <= 'z') ++i;
            const std::string_view word = rtf.substr(begin, i - begin);
            const std::size_t digits = i;
            while (!word.empty() && i < rtf.size() &&
                   (rtf[i] == '-' || (rtf[i] >= '0' && rtf[i] <= '9')))
                ++i;
            if (word.empty())
                text += static_cast<char16_t>(rtf[i]);
            else if (word == "u")
                text +=
                    static_cast<char16_t>(std::stoi(std::string(rtf.substr(digits, i - digits))));
            else if (word == "par")
                text += u'\n';
            // A blank, or the character that stands in for a "\u", belongs to the word.
            if (!word.empty() && rtf[i] != ' ' && rtf[i] != '?') --i;
        } else if (c != '\n' && depth == 1) {
            text += static_cast<char16_t>(c);
        }
    }
    require(depth == 0, "a group of the stream is open");
    return text;
}

/// The stream's text is the fragment's, line breaks that keep long lines short aside, and each of
/// its characters leads where the fragment says.
void checkText(const HtmlFragment& fragment, const RichText& rich, const std::u16string& text) {
    const bool mayBreak = fragment.text.size() > longText;
    std::size_t at = 0;
    std::size_t column = 0;
    for (const TextRun& run : fragment.runs) {
        for (const char16_t c :
             toUtf16(std::string_view(fragment.text).substr(run.begin, run.end - run.begin))) {
            if (c != u'\n' && (c < u' ' || c == 0x7F)) continue;
            require(at < text.size(), "the stream lacks text");
            if (c != u'\n' && text[at] == u'\n') {
                require(mayBreak && column >= (c == u' ' ? longLine : longestLine),
                        "a short line is broken");
                ++at;
                column = 0;
                if (c == u' ') continue;
                require(at < text.size(), "the stream lacks text");
            }
            require(text[at] == (c >= 0xFFF9 ? char16_t{0xFFFD} : c), "another text is streamed");
            const TextLink* link = linkAt(rich.links, at++);
            column = c == u'\n' ? 0 : column + 1;
            require(!mayBreak || column <= longestLine, "a line is too long");
            if (c == u'\n') continue;
            require(run.link == TextRun::noLink
                        ? link == nullptr
                        : link && link->address ==
                                      fragment.addresses[static_cast<std::size_t>(run.link)],
                    "a character leads elsewhere");
        }
    }
    require(at == text.size(), "the stream has more text");
}

void checkStream(const HtmlFragment& fragment) {
    const RichText rich = toRichText(fragment, rgb(0, 0, 255));
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
    if (rich.length < mostCharacters && rich.lines < mostLines)
        checkText(fragment, rich, text);
    else
        require(text.ends_with(toUtf16(restNotice)), "the notice is missing");
}

}  // namespace

void html(std::string_view input) {
    const HtmlFragment fragment = parseHtmlFragment(input);
    checkRuns(fragment);
    checkStream(fragment);
    if (input.find_first_of("<&") == input.npos) {
        std::string plain;
        for (const char c : input) {
            const bool blank = std::string_view(" \t\r\n\f").find(c) != std::string_view::npos;
            if (!blank)
                plain += c;
            else if (!plain.empty() && plain.back() != ' ')
                plain += ' ';
        }
        if (plain.ends_with(' ')) plain.pop_back();
        require(fragment.text == plain, "plain text does not stay");
    }
    for (const std::string& address : fragment.addresses)
        if (mayOpen(address))
            require(address.find_first_of("\r\n\t") == std::string::npos &&
                        (address[0] == 'h' || address[0] == 'H'),
                    "another scheme is opened");
}

}  // namespace velvox::fuzz
