#include "app/pane/html_fragment.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>
#include <optional>
#include <utility>

#include "app/pane/html_tag.h"
#include "base/ascii.h"
#include "base/utf16.h"

namespace velvox {
namespace {

using std::size_t;
using std::string_view;

constexpr string_view defaultFace = "Tahoma";

// Limits on what is kept of a hostile page. They are far above what the pane can show, except the
// limit on addresses: the longest list that can be shown may have addresses of 500 bytes each.
constexpr size_t maxFaces = 64;  // text in further fonts is shown in the default face
constexpr size_t maxFontDepth = 1000;
constexpr size_t maxText = 4'000'000;
constexpr size_t maxRuns = 200'000;
constexpr size_t maxTotalAddressBytes = 16'000'000;

// The font sizes 1 to 7 in half points.
constexpr std::array<std::uint16_t, 7> sizes{15, 20, 24, 27, 36, 48, 72};

constexpr std::pair<string_view, Rgb> colourNames[] = {
    {"black", rgb(0, 0, 0)},       {"silver", rgb(192, 192, 192)}, {"gray", rgb(128, 128, 128)},
    {"white", rgb(255, 255, 255)}, {"maroon", rgb(128, 0, 0)},     {"red", rgb(255, 0, 0)},
    {"purple", rgb(128, 0, 128)},  {"fuchsia", rgb(255, 0, 255)},  {"green", rgb(0, 128, 0)},
    {"lime", rgb(0, 255, 0)},      {"olive", rgb(128, 128, 0)},    {"yellow", rgb(255, 255, 0)},
    {"navy", rgb(0, 0, 128)},      {"blue", rgb(0, 0, 255)},       {"teal", rgb(0, 128, 128)},
    {"aqua", rgb(0, 255, 255)},
};

constexpr std::pair<string_view, string_view> entityNames[] = {
    {"amp", "&"}, {"lt", "<"}, {"gt", ">"}, {"quot", "\""}, {"apos", "'"}, {"nbsp", "\xC2\xA0"},
};

// Maximum length of a character reference, from "&" to ";". It limits the search for the semicolon.
constexpr size_t maxReferenceLength = 12;

string_view trimmed(string_view text) {
    return ascii::trimmed(text, isHtmlBlank);
}

template <class Number>
std::optional<Number> number(string_view digits, int base) {
    Number value{};
    const char* end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, value, base);
    if (error != std::errc{} || stop != end) return std::nullopt;
    return value;
}

// The character for a reference such as "amp" or "#38", which comes without its "&" and ";". Empty
// if the reference is unknown.
std::string resolved(string_view reference) {
    if (!reference.starts_with('#')) {
        for (const auto& [name, text] : entityNames)
            if (reference == name) return std::string(text);
        return {};
    }
    reference.remove_prefix(1);
    const bool hex = reference.starts_with('x') || reference.starts_with('X');
    if (hex) reference.remove_prefix(1);
    const auto code = number<std::uint32_t>(reference, hex ? 16 : 10);
    if (!code) return {};
    if (*code == 0 || *code > 0x10FFFF || (*code >= 0xD800 && *code <= 0xDFFF))
        return toBytes(u"\xFFFD");
    if (*code < 0x10000) return toBytes(std::u16string(1, static_cast<char16_t>(*code)));
    const std::uint32_t above = *code - 0x10000;
    return toBytes(std::u16string{static_cast<char16_t>(0xD800 + (above >> 10)),
                                  static_cast<char16_t>(0xDC00 + (above & 0x3FF))});
}

// Removes a character reference from the front of a text that starts with "&". A reference must end
// with a semicolon, because addresses are full of "&name=", which is plain text.
std::optional<std::string> takeReference(string_view& rest) {
    const auto end = rest.substr(0, maxReferenceLength).find(';');
    if (end == rest.npos) return std::nullopt;
    std::string text = resolved(rest.substr(1, end - 1));
    if (text.empty()) return std::nullopt;
    rest.remove_prefix(end + 1);
    return text;
}

std::string withReferencesResolved(string_view value) {
    std::string result;
    while (!value.empty()) {
        if (value.front() == '&') {
            if (const auto text = takeReference(value)) {
                result += *text;
                continue;
            }
        }
        const size_t length = std::min(value.find('&', 1), value.size());
        result += value.substr(0, length);
        value.remove_prefix(length);
    }
    return result;
}

// An address as browsers read it: without surrounding blanks, and without line breaks and tabs
// anywhere in it. NULs are removed too, because they would end the address early in system calls.
std::string addressOf(string_view value) {
    std::string address(trimmed(withReferencesResolved(value)));
    std::erase_if(address, [](char c) { return c == '\0' || c == '\t' || c == '\r' || c == '\n'; });
    return address;
}

class Parser {
 public:
    explicit Parser(string_view html) : rest_(html) { result_.faces.emplace_back(defaultFace); }

    HtmlFragment parse() {
        result_.text.reserve(std::min(rest_.size(), maxText));
        while (!rest_.empty() && !isFull()) {
            const char c = rest_.front();
            if (c == '<' && takeMarkup()) continue;
            if (c == '&') {
                if (const auto text = takeReference(rest_)) {
                    // A reference to a white space character counts as white space.
                    if (text->size() == 1 && isHtmlBlank(text->front()))
                        appendBlank();
                    else
                        append(*text);
                    continue;
                }
            }
            if (isHtmlBlank(c)) {
                rest_.remove_prefix(1);
                appendBlank();
                continue;
            }
            takeWord();
        }
        result_.truncated = !rest_.empty();
        dropBlankAtEnd();
        return std::move(result_);
    }

 private:
    bool isFull() const {
        return result_.text.size() >= maxText || result_.runs.size() >= maxRuns ||
               addressBytes_ >= maxTotalAddressBytes;
    }

    void takeWord() {
        const string_view near = rest_.substr(0, maxText);
        const auto stop = std::find_if(near.begin() + 1, near.end(), [](char next) {
            return next == '<' || next == '&' || isHtmlBlank(next);
        });
        const auto length = static_cast<size_t>(stop - near.begin());
        append(near.substr(0, length));
        rest_.remove_prefix(length);
    }

    // Handles a tag or comment at the start of the rest. Returns false if the "<" is plain text.
    bool takeMarkup() {
        if (tagsEnded_ || rest_.size() < 2) return false;
        const char next = rest_[1];
        if (next == '!' || next == '?') return takeDeclaration();
        if (!ascii::isLetter(next) &&
            (next != '/' || rest_.size() < 3 || !ascii::isLetter(rest_[2])))
            return false;
        const auto tag = takeHtmlTag(rest_);
        if (!tag) {
            // The whole rest has been searched for the end of a tag. Searching again from each "<"
            // would take quadratic time, so the rest is read as plain text.
            tagsEnded_ = true;
            return false;
        }
        handle(*tag);
        return true;
    }

    bool takeDeclaration() {
        if (rest_.starts_with("<!--") && !commentsEnded_) {
            const auto end = rest_.find("-->", 4);
            if (end != rest_.npos) {
                rest_.remove_prefix(end + 3);
                return true;
            }
            commentsEnded_ = true;
        }
        const auto end = rest_.find('>');
        tagsEnded_ = end == rest_.npos;
        if (tagsEnded_) return false;
        rest_.remove_prefix(end + 1);
        return true;
    }

    void handle(const HtmlTag& tag) {
        if (ascii::equalIgnoringCase(tag.name, "br")) {
            breakLine();
        } else if (ascii::equalIgnoringCase(tag.name, "font")) {
            if (!tag.closes)
                openFont(tag);
            else
                closeFont();
        } else if (ascii::equalIgnoringCase(tag.name, "a")) {
            // Links do not nest: each "a" tag, even a closing one or one without an address, ends
            // the previous link. So a link whose end is written "<a>" has only its own text.
            link_ = TextRun::noLink;
            ++anchor_;
            address_.reset();
            if (!tag.closes && tag.href && tag.href->size() <= maxAddressLength)
                address_ = addressOf(*tag.href);
        }
    }

    void closeFont() {
        if (ignoredFonts_ > 0) {
            --ignoredFonts_;
        } else if (!outer_.empty()) {
            fonts_ = outer_.back();
            outer_.pop_back();
        }
    }

    void openFont(const HtmlTag& tag) {
        if (outer_.size() == maxFontDepth) {
            ++ignoredFonts_;
            return;
        }
        outer_.push_back(fonts_);
        if (tag.face) fonts_.look.face = faceIndex(*tag.face);
        if (tag.size) fonts_.look.halfPoints = sizeOf(*tag.size);
        if (!tag.colour) return;
        if (const auto colour = colourOf(*tag.colour)) {
            fonts_.look.colour = *colour;
            fonts_.colouredIn = anchor_;
        }
    }

    std::uint16_t faceIndex(string_view list) {
        const std::string name = withReferencesResolved(trimmed(list.substr(0, list.find(','))));
        if (name.empty()) return fonts_.look.face;
        const auto known =
            std::find_if(result_.faces.begin(), result_.faces.end(),
                         [&](const auto& face) { return ascii::equalIgnoringCase(face, name); });
        const auto index = static_cast<std::uint16_t>(known - result_.faces.begin());
        if (known != result_.faces.end()) return index;
        if (result_.faces.size() == maxFaces) return 0;
        result_.faces.push_back(name);
        return index;
    }

    std::uint16_t sizeOf(string_view text) const {
        text = trimmed(text);
        const bool larger = text.starts_with('+');
        const bool smaller = text.starts_with('-');
        if (larger) text.remove_prefix(1);
        const auto value = number<int>(text, 10);
        if (!value || (larger && smaller)) return fonts_.look.halfPoints;
        constexpr int base = 3;  // the size to which "+1" and "-1" are relative
        constexpr int most = static_cast<int>(sizes.size());
        const int step = std::clamp(*value, -most, most) + (larger || smaller ? base : 0);
        return sizes[static_cast<size_t>(std::clamp(step, 1, most) - 1)];
    }

    static std::optional<Rgb> colourOf(string_view text) {
        text = trimmed(text);
        for (const auto& [name, colour] : colourNames)
            if (ascii::equalIgnoringCase(text, name)) return colour;
        if (text.size() != 7 || text.front() != '#') return std::nullopt;
        const auto value = number<std::uint32_t>(text.substr(1), 16);
        if (!value) return std::nullopt;
        return rgb(static_cast<int>(*value >> 16), static_cast<int>((*value >> 8) & 0xFF),
                   static_cast<int>(*value & 0xFF));
    }

    void append(string_view text) {
        // The address is stored only when its link gets text, because many links without text would
        // waste memory.
        if (address_) {
            link_ = static_cast<int>(result_.addresses.size());
            addressBytes_ += address_->size();
            result_.addresses.push_back(std::move(*address_));
            address_.reset();
        }
        TextLook look = fonts_.look;
        // A link has the link colour unless a font tag inside the link sets another.
        if (link_ != TextRun::noLink && fonts_.colouredIn != anchor_)
            look.colour = TextLook::automatic;
        const size_t begin = result_.text.size();
        result_.text += text;
        auto& runs = result_.runs;
        if (runs.empty() || runs.back().look != look || runs.back().link != link_)
            runs.push_back({begin, begin, look, link_});
        runs.back().end = result_.text.size();
        lineIsEmpty_ = endsInBlank_ = false;
    }

    void appendBlank() {
        if (lineIsEmpty_ || endsInBlank_) return;
        append(" ");
        endsInBlank_ = true;
    }

    void breakLine() {
        dropBlankAtEnd();
        append("\n");
        lineIsEmpty_ = true;
    }

    void dropBlankAtEnd() {
        if (!std::exchange(endsInBlank_, false)) return;
        result_.text.pop_back();
        TextRun& last = result_.runs.back();
        if (--last.end == last.begin) result_.runs.pop_back();
    }

    struct Fonts {
        TextLook look;
        size_t colouredIn = 0;  ///< value of anchor_ when the colour was set
    };

    string_view rest_;
    HtmlFragment result_;
    Fonts fonts_;
    std::vector<Fonts> outer_;            // one for each open font tag: the look outside it
    size_t ignoredFonts_ = 0;             // open font tags beyond maxFontDepth
    size_t anchor_ = 0;                   // number of "a" tags so far
    std::optional<std::string> address_;  // address of a link that has no text yet
    int link_ = TextRun::noLink;
    size_t addressBytes_ = 0;
    bool lineIsEmpty_ = true;
    bool endsInBlank_ = false;
    bool tagsEnded_ = false;      // no tag ends within rest_
    bool commentsEnded_ = false;  // no comment ends within rest_
};

}  // namespace

HtmlFragment parseHtmlFragment(std::string_view html) {
    return Parser(html).parse();
}

}  // namespace velvox
