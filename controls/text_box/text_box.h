// The standard text box inside an XPTextBox: its values, which an EDIT window follows.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "base/colour.h"
#include "base/control.h"
#include "base/font.h"

namespace velvox {

/// A range of a text, in bytes.
struct Selection {
    std::int32_t start = 0;
    std::int32_t length = 0;

    bool operator==(const Selection&) const = default;
};

/// The window of a text box knows the selection that the person has made.
class TextBoxView : public ControlView {
 public:
    virtual Selection selection() const = 0;
    virtual void focus() = 0;
};

class TextBox : public Control {
 public:
    using Control::Control;

    const std::string& Text() const noexcept { return text_; }
    /// Cut to MaxLength; the selection goes to the start. Raises Change when the text differs.
    void Text(std::string_view text);

    /// 0 left, 1 right, 2 centred. Throws InvalidProperty for anything else.
    std::int16_t Alignment() const noexcept { return alignment_; }
    void Alignment(std::int16_t alignment);

    bool Enabled() const noexcept { return enabled_; }
    void Enabled(bool enabled);
    bool Locked() const noexcept { return locked_; }
    void Locked(bool locked);

    const Font& font() const noexcept { return font_; }
    void font(const Font& font);
    OleColour BackColor() const noexcept { return backColor_; }
    void BackColor(OleColour colour);
    OleColour ForeColor() const noexcept { return foreColor_; }
    void ForeColor(OleColour colour);

    /// 0 is no limit. Throws InvalidProperty for a negative one.
    std::int32_t MaxLength() const noexcept { return maxLength_; }
    void MaxLength(std::int32_t length);

    const std::string& PasswordChar() const noexcept { return passwordChar_; }
    void PasswordChar(std::string_view character);
    const std::string& ToolTipText() const noexcept { return toolTipText_; }
    void ToolTipText(std::string_view text);
    const std::string& DataField() const noexcept { return dataField_; }
    void DataField(std::string_view name) { dataField_ = name; }

    /// The selection, clipped to the text. Negative values throw InvalidProperty.
    std::int32_t SelStart() const { return selection().start; }
    void SelStart(std::int32_t start);
    std::int32_t SelLength() const { return selection().length; }
    void SelLength(std::int32_t length);
    std::string SelText() const;
    /// Replaces the selection and puts the caret behind the new text.
    void SelText(std::string_view text);

    void SetFocus();

    /// What the person typed into the window; raises Change.
    void typed(std::string_view text);

    void setTextView(TextBoxView* view) noexcept;

    /// The selection that was set last, for the view that carries it out.
    Selection wantedSelection() const noexcept { return selection_; }

    std::function<void()> Change, Click, DblClick;
    std::function<void(std::int16_t& keyAscii)> KeyPress;
    std::function<void(std::int16_t button, std::int16_t shift, float x, float y)> MouseMove;

 private:
    Selection selection() const;
    void select(Selection wanted);

    std::string text_;
    std::string passwordChar_;
    std::string toolTipText_;
    std::string dataField_;
    Font font_;
    Selection selection_;
    std::int32_t maxLength_ = 0;
    std::int16_t alignment_ = 0;
    bool enabled_ = true;
    bool locked_ = false;
    OleColour backColor_ = systemColour(WindowColour);
    OleColour foreColor_ = systemColour(WindowTextColour);
    TextBoxView* textView_ = nullptr;
};

}  // namespace velvox
