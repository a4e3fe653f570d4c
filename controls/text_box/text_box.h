// The model of the standard text box inside an XPTextBox. An EDIT window displays it.
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

/// Implemented by the window of a text box, where the user changes the selection.
class TextBoxView : public ControlObserver {
 public:
    virtual Selection selection() const = 0;
    virtual void focus() = 0;
};

class TextBox : public Control {
 public:
    using Control::Control;

    const std::string& Text() const noexcept { return text_; }
    /// Sets the text, cut to the first MaxLength characters, and moves the selection to the start.
    /// Raises Change when the text is different.
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

    /// Maximum number of characters that can be assigned or entered; 0 for no limit. A longer text
    /// that is already in the box stays. Throws InvalidProperty for a negative limit.
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
    /// Replaces the selection by `text`, cut to the room that MaxLength leaves, and puts the caret
    /// after the inserted text.
    void SelText(std::string_view text);

    /// Maximum number of characters that can replace the selection; only valid with a MaxLength
    /// above 0.
    std::size_t roomAtSelection() const;

    void SetFocus();

    /// Called after the user has edited the text in the window. Raises Change when the text is
    /// different.
    void typed(std::string_view text);

    void setTextView(TextBoxView* view) noexcept;

    /// The selection that the program set last; the window applies it.
    Selection wantedSelection() const noexcept { return selection_; }

    std::function<void()> Change, Click, DblClick;
    std::function<void(std::int16_t& keyAscii)> KeyPress;
    std::function<void(std::int16_t button, std::int16_t shift, float x, float y)> MouseMove;

 private:
    Selection selection() const;
    std::string unselected() const;
    void select(Selection wanted);
    void store(std::string_view text);

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
