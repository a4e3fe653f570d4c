#include "controls/text_box/text_box.h"

#include <algorithm>

#include "base/runtime_failure.h"
#include "base/utf16.h"

namespace velvox {

void TextBox::Text(std::string_view text) {
    if (maxLength_ > 0) text = firstCharacters(text, static_cast<std::size_t>(maxLength_));
    store(text);
}

void TextBox::store(std::string_view text) {
    selection_ = {};
    if (text_ == text) {
        changed(ControlChange::Selection);
        return;
    }
    text_ = text;
    changed(ControlChange::Text);
    if (Change) Change();
}

void TextBox::typed(std::string_view text) {
    if (text_ == text) return;
    text_ = text;
    if (Change) Change();
}

void TextBox::Alignment(std::int16_t alignment) {
    if (alignment < 0 || alignment > 2)
        throw RuntimeFailure(Fault::InvalidProperty, "The alignment is not left, right or centred");
    alignment_ = alignment;
    changed(ControlChange::Appearance);
}

void TextBox::Enabled(bool enabled) {
    enabled_ = enabled;
    changed(ControlChange::Enabled);
}

void TextBox::Locked(bool locked) {
    locked_ = locked;
    changed(ControlChange::Other);
}

void TextBox::font(const Font& font) {
    font_ = font;
    changed(ControlChange::Appearance);
}

void TextBox::BackColor(OleColour colour) {
    backColor_ = colour;
    changed(ControlChange::Appearance);
}

void TextBox::ForeColor(OleColour colour) {
    foreColor_ = colour;
    changed(ControlChange::Appearance);
}

void TextBox::MaxLength(std::int32_t length) {
    if (length < 0) throw RuntimeFailure(Fault::InvalidProperty, "The length limit is negative");
    maxLength_ = length;
    changed(ControlChange::Other);
}

void TextBox::PasswordChar(std::string_view character) {
    passwordChar_ = character;
    changed(ControlChange::Other);
}

void TextBox::ToolTipText(std::string_view text) {
    toolTipText_ = text;
    changed(ControlChange::Other);
}

void TextBox::SelStart(std::int32_t start) {
    select({start, 0});
}

void TextBox::SelLength(std::int32_t length) {
    select({selection().start, length});
}

std::string TextBox::SelText() const {
    const Selection at = selection();
    return text_.substr(static_cast<std::size_t>(at.start), static_cast<std::size_t>(at.length));
}

void TextBox::SelText(std::string_view text) {
    const std::int32_t start = selection().start;
    std::string whole = unselected();
    if (maxLength_ > 0) text = firstCharacters(text, roomAtSelection());
    whole.insert(static_cast<std::size_t>(start), text);
    const auto caret = start + static_cast<std::int32_t>(text.size());
    store(whole);
    select({caret, 0});
}

std::string TextBox::unselected() const {
    const Selection at = selection();
    std::string rest = text_;
    return rest.erase(static_cast<std::size_t>(at.start), static_cast<std::size_t>(at.length));
}

std::size_t TextBox::roomAtSelection() const {
    const auto limit = static_cast<std::size_t>(maxLength_);
    const std::size_t kept = characterCount(unselected());
    return limit > kept ? limit - kept : 0;
}

void TextBox::SetFocus() {
    if (textView_) textView_->focus();
}

void TextBox::setTextView(TextBoxView* view) noexcept {
    textView_ = view;
    setObserver(view);
}

Selection TextBox::selection() const {
    const Selection wanted = textView_ ? textView_->selection() : selection_;
    const auto size = static_cast<std::int32_t>(text_.size());
    const std::int32_t start = std::min(wanted.start, size);
    return {start, std::min(wanted.length, size - start)};
}

void TextBox::select(Selection wanted) {
    if (wanted.start < 0 || wanted.length < 0)
        throw RuntimeFailure(Fault::InvalidProperty, "The selection is negative");
    const auto size = static_cast<std::int32_t>(text_.size());
    selection_.start = std::min(wanted.start, size);
    selection_.length = std::min(wanted.length, size - selection_.start);
    changed(ControlChange::Selection);
}

}  // namespace velvox
