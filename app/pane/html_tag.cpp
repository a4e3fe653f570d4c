#include "app/pane/html_tag.h"

#include <utility>

#include "base/ascii.h"

namespace velvox {
namespace {

using std::size_t;
using std::string_view;

// Reads one tag from the text after its "<". Fails if the text ends before the tag does.
class TagReader {
 public:
    explicit TagReader(string_view text) : text_(text) {}

    std::optional<HtmlTag> read() {
        HtmlTag tag;
        if (take('/')) tag.closes = true;
        tag.name = upTo([](char c) { return isHtmlBlank(c) || c == '/' || c == '>'; });
        while (at_ < text_.size()) {
            if (take('>')) return tag;
            if (isHtmlBlank(text_[at_]) || text_[at_] == '/')
                ++at_;
            else if (!readAttribute(tag))
                break;
        }
        return std::nullopt;
    }

    /// Number of bytes read so far.
    size_t length() const { return at_; }

 private:
    bool take(char c) {
        if (at_ == text_.size() || text_[at_] != c) return false;
        ++at_;
        return true;
    }

    template <class Stop>
    string_view upTo(Stop stop) {
        const size_t begin = at_;
        while (at_ < text_.size() && !stop(text_[at_])) ++at_;
        return text_.substr(begin, at_ - begin);
    }

    bool readAttribute(HtmlTag& tag) {
        const size_t begin = at_++;  // a leading "=" belongs to the name
        upTo([](char c) { return isHtmlBlank(c) || c == '/' || c == '>' || c == '='; });
        const string_view name = text_.substr(begin, at_ - begin);
        upTo([](char c) { return !isHtmlBlank(c); });
        string_view value;
        if (take('=')) {
            upTo([](char c) { return !isHtmlBlank(c); });
            if (at_ == text_.size()) return false;
            const char quote = text_[at_];
            if (quote == '\'' || quote == '"') {
                ++at_;
                value = upTo([quote](char c) { return c == quote; });
                if (!take(quote)) return false;
            } else {
                value = upTo([](char c) { return isHtmlBlank(c) || c == '>'; });
            }
        }
        const std::pair<string_view, std::optional<string_view>&> known[] = {
            {"href", tag.href}, {"face", tag.face}, {"size", tag.size}, {"color", tag.colour}};
        for (const auto& [word, slot] : known)
            if (!slot && ascii::equalIgnoringCase(name, word)) slot = value;
        return true;
    }

    string_view text_;
    size_t at_ = 0;
};

}  // namespace

bool isHtmlBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r' && c != '\v');
}

std::optional<HtmlTag> takeHtmlTag(string_view& rest) {
    TagReader reader(rest.substr(1));
    const auto tag = reader.read();
    if (tag) rest.remove_prefix(1 + reader.length());
    return tag;
}

}  // namespace velvox
