#include "app/form1/controls.h"

#include <algorithm>
#include <utility>

#include "base/runtime_failure.h"

namespace velvox {

void Label::Caption(std::string_view text) {
    if (caption_ == text) return;
    caption_ = text;
    changed(ControlChange::Text);
}

void Label::ForeColor(OleColour colour) {
    foreColor_ = colour;
    changed(ControlChange::Appearance);
}

void Label::font(const Font& font) {
    font_ = font;
    changed(ControlChange::Appearance);
}

void HiddenText::Text(std::string text) {
    // A move keeps the old memory if the new text is short. That makes the next list of links
    // faster, but a hostile list may have been much longer than an ordinary one.
    constexpr std::size_t maxKeptBytes = 16'000'000;
    if (text_.capacity() > maxKeptBytes)
        text_.swap(text);
    else
        text_ = std::move(text);
    if (Change) Change();
}

void HiddenText::append(std::initializer_list<std::string_view> pieces) {
    std::size_t size = text_.size();
    for (const std::string_view piece : pieces) size += piece.size();
    if (size > maxBytes) throw RuntimeFailure(Fault::Overflow, "The list of links is too long");
    if (size > text_.capacity()) {
        // reserve() on text_ itself would at least double the capacity.
        std::string grown;
        grown.reserve(std::min(std::max(size, 2 * text_.capacity()), maxBytes));
        text_.swap(grown.append(text_));
    }
    for (const std::string_view piece : pieces) text_.append(piece);
}

void ComboBox::AddItem(std::string_view text) {
    items_.emplace_back(text);
    changed(ControlChange::Items);
}

void ComboBox::ListIndex(int index) {
    if (index < -1 || index >= static_cast<int>(items_.size()))
        throw RuntimeFailure(Fault::InvalidProperty, Name() + " has no such entry");
    index_ = index;
    changed(ControlChange::Selection);
    if (Click) Click();
}

std::string_view ComboBox::Text() const {
    return index_ < 0 ? std::string_view() : items_[static_cast<std::size_t>(index_)];
}

void Timer::Interval(unsigned milliseconds) {
    interval_ = milliseconds;
    if (observer_) observer_->controlChanged(ControlChange::Other);
}

void Timer::Enabled(bool enabled) {
    enabled_ = enabled;
    if (observer_) observer_->controlChanged(ControlChange::Enabled);
}

}  // namespace velvox
