#include "app/pane/rich_text.h"

#include <algorithm>
#include <map>
#include <utility>

#include "app/pane/fill_cost.h"
#include "base/utf16.h"
#include "base/web_address.h"

namespace velvox {
namespace {

using std::size_t;

// Maximum number of colours. Text in a further colour is shown in the colour of plain text.
constexpr size_t maxColours = 250;

// A font's name for the RTF font table, without the characters that could end its entry.
std::string tableName(std::string_view face) {
    constexpr size_t maxFaceNameLength = 31;  // the system's limit for font names
    std::string name;
    for (const char c : face)
        if (c >= ' ' && c <= '~' && std::string_view("\\{};").find(c) == std::string_view::npos)
            name += c;
    return name.substr(0, maxFaceNameLength);
}

// Width of a character in columns: 1 up to size 3, 4 in size 7.
size_t widthOf(const TextLook& look) {
    constexpr size_t normal = TextLook{}.halfPoints;
    return std::max<size_t>(1, (look.halfPoints + normal * 3 / 4) / normal);
}

// The link colour of browsers.
constexpr Rgb usualLink = rgb(0, 0, 255);

bool isLegibleLink(Rgb colour, const PaneColours& colours) {
    return contrast(colour, colours.background) >= colours.linkContrast;
}

// Whether links are legible in the control's own link format. The control draws this format in the
// system's link colour (Wine's control: in pure blue) and ignores the colour of the RTF.
bool hasLegibleLinkFormat(const PaneColours& colours) {
    return isLegibleLink(colours.link, colours) && isLegibleLink(usualLink, colours);
}

class Writer {
 public:
    Writer(HtmlFragment fragment, const PaneColours& colours)
        : fragment_(std::move(fragment)),
          paneColours_(colours),
          linkColour_(isLegibleLink(colours.link, colours) ? colours.link : usualLink),
          marksLinks_(hasLegibleLinkFormat(colours)),
          isLong_(fragment_.text.size() > longText) {}

    RichText write() {
        std::string& rtf = result_.rtf;
        std::string body;
        body.swap(rtf);
        const bool whole = std::all_of(fragment_.runs.begin(), fragment_.runs.end(),
                                       [this](const TextRun& run) { return writeRun(run); });
        if (!whole || fragment_.truncated) {
            result_.truncated = true;
            if (result_.length > 0) breakLine();
            enter({}, false);
            for (const char c : restNotice) put(static_cast<char16_t>(c), 1);
        }
        body.swap(rtf);
        rtf = "{\\rtf1\\ansi\\uc1\\deff0" + fontTable() + colourTable();
        rtf += "\\pard\\f0\\fs" + std::to_string(TextLook{}.halfPoints) + ' ';
        rtf += body;
        rtf += '}';
        return std::move(result_);
    }

 private:
    struct State {
        std::uint16_t face = 0;
        std::uint16_t halfPoints = TextLook{}.halfPoints;
        size_t colour = 0;  // index into the colour table; 0 is the window's text colour
        bool underlined = false;
    };

    // Returns false if the maximum cost is reached before the end of the run.
    bool writeRun(const TextRun& run) {
        const size_t width = widthOf(run.look);
        const std::u16string text =
            toUtf16(std::string_view(fragment_.text).substr(run.begin, run.end - run.begin));
        const bool inLink = run.link != TextRun::noLink;
        for (const char16_t c : text) {
            const bool startsCharacter = c < 0xDC00 || c > 0xDFFF;
            if (startsCharacter && cost_.isExceeded()) return false;
            if (c == u'\n') {
                breakLine();
            } else if (c >= u' ' && c != 0x7F) {
                if (isLong_ && startsCharacter &&
                    column_ >= (c == u' ' ? longLine : maxLineLength)) {
                    breakLine();
                    if (c == u' ') continue;
                }
                // A line break is invisible, so it gets no format of its own. A list of links then
                // has one format throughout, which streams in half the time.
                enter(run.look, inLink);
                if (inLink) extendLink(run);
                put(c, width);
            }
        }
        return true;
    }

    void breakLine() {
        result_.rtf += "\\par\n";
        ++result_.length;
        ++result_.lines;
        cost_.addLine(column_);
        column_ = 0;
    }

    void put(char16_t c, size_t width) {
        std::string& rtf = result_.rtf;
        // Rich edit reserves the topmost codes for objects and for itself.
        if (c >= 0xFFF9) c = 0xFFFD;
        if (c == u'\\' || c == u'{' || c == u'}') rtf += '\\';
        if (c < 0x80) {
            rtf += static_cast<char>(c);
        } else {
            rtf += "\\u";
            rtf += std::to_string(static_cast<std::int16_t>(c));
            rtf += '?';
        }
        ++result_.length;
        cost_.addCharacter(c, column_, width);
        column_ += width;
    }

    void extendLink(const TextRun& run) {
        auto& links = result_.links;
        auto& spans = result_.spans;
        if (run.link != openLink_) {
            openLink_ = run.link;
            std::string& address = fragment_.addresses[static_cast<size_t>(run.link)];
            links.push_back({result_.length, 0, std::move(address), run.look.halfPoints});
            cost_.addLink();
            // A new span starts if there is text outside links after the end of the last span.
            if (marksLinks_ && (spans.empty() || plainEnd_ > spans.back().end)) {
                spans.push_back({result_.length, 0});
                if (spans.size() <= maxMarkedSpans) cost_.addSpan();
            }
        }
        links.back().end = result_.length + 1;
        if (marksLinks_) spans.back().end = result_.length + 1;
    }

    void enter(const TextLook& look, bool inLink) {
        if (!inLink) plainEnd_ = result_.length + 1;
        const bool automatic = look.colour == TextLook::automatic;
        const State next{
            look.face, look.halfPoints,
            automatic && !inLink ? 0 : colourIndex(automatic ? linkColour_ : look.colour, inLink),
            inLink};
        const size_t before = result_.rtf.size();
        std::string& rtf = result_.rtf;
        if (next.face != state_.face) rtf += "\\f" + std::to_string(next.face);
        if (next.halfPoints != state_.halfPoints) rtf += "\\fs" + std::to_string(next.halfPoints);
        if (next.colour != state_.colour) rtf += "\\cf" + std::to_string(next.colour);
        if (next.underlined != state_.underlined) rtf += next.underlined ? "\\ul" : "\\ulnone";
        if (rtf.size() != before) {
            rtf += ' ';
            cost_.addFormat({next.face, next.halfPoints, next.underlined});
        }
        state_ = next;
    }

    size_t colourIndex(Rgb colour, bool inLink) {
        const auto known = colourIndices_.find({colour, inLink});
        if (known != colourIndices_.end()) return known->second;
        if (colours_.size() == maxColours) return 0;
        colours_.push_back(
            legible(colour, paneColours_.background,
                    inLink ? paneColours_.linkContrast : paneColours_.plainContrast));
        return colourIndices_[{colour, inLink}] = colours_.size();
    }

    std::string fontTable() const {
        std::string table = "{\\fonttbl";
        for (size_t i = 0; i < fragment_.faces.size(); ++i)
            table += "{\\f" + std::to_string(i) + "\\fnil " + tableName(fragment_.faces[i]) + ";}";
        return table + '}';
    }

    std::string colourTable() const {
        std::string table = "{\\colortbl;";
        for (const Rgb colour : colours_)
            table += "\\red" + std::to_string(redOf(colour)) + "\\green" +
                     std::to_string(greenOf(colour)) + "\\blue" + std::to_string(blueOf(colour)) +
                     ';';
        return table + '}';
    }

    HtmlFragment fragment_;
    PaneColours paneColours_;
    // The system's link colour, or `usualLink` if the system's is not legible. The system's colour
    // is not darkened, because a darkened pale colour looks like disabled text.
    Rgb linkColour_;
    bool marksLinks_;
    bool isLong_;
    RichText result_;
    State state_;
    std::vector<Rgb> colours_;
    // Each key is a colour, with true for text in a link.
    std::map<std::pair<Rgb, bool>, size_t> colourIndices_;
    int openLink_ = TextRun::noLink;
    size_t plainEnd_ = 0;  // position after the last text outside links
    size_t column_ = 0;    // width of the current line so far, in characters of size 2
    FillCost cost_;
};

}  // namespace

RichText toRichText(HtmlFragment fragment, const PaneColours& colours) {
    return Writer(std::move(fragment), colours).write();
}

const TextLink* linkAfter(const std::vector<TextLink>& links, std::size_t character) {
    const auto next = std::upper_bound(
        links.begin(), links.end(), character,
        [](std::size_t place, const TextLink& link) { return place < link.begin; });
    return next == links.end() ? nullptr : &*next;
}

const TextLink* linkBefore(const std::vector<TextLink>& links, std::size_t character) {
    const auto next =
        std::upper_bound(links.begin(), links.end(), character,
                         [](std::size_t place, const TextLink& link) { return place < link.end; });
    return next == links.begin() ? nullptr : &*std::prev(next);
}

const TextLink* linkAt(const std::vector<TextLink>& links, std::size_t character) {
    const auto next =
        std::upper_bound(links.begin(), links.end(), character,
                         [](std::size_t place, const TextLink& link) { return place < link.end; });
    return next == links.end() || character < next->begin ? nullptr : &*next;
}

std::string addressList(const std::vector<TextLink>& links, CharacterRange range) {
    std::string list;
    for (const TextLink& link : links)
        if (link.begin < range.end && link.end > range.begin && isWebAddress(link.address))
            list += link.address + "\r\n";
    return list;
}

}  // namespace velvox
