// The standard text box inside an XPTextBox: its values, which an EDIT window displays.
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

/// The window of a text box reports the selection that the user has made.
class TextBoxView : public ControlObserver {
 public:
    virtual Selection selection() const = 0;
    virtual void focus() = 0;
};

class TextBox : public Control {
 public:
    using Control::Control;

    const std::string& Text() const noexcept { return text_; }
    /// Keeps the first MaxLength characters; the selection moves to the start. Raises Change when
    /// the text differs.
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

    /// How many characters can be assigned or entered; 0 is no limit. A text that is longer
    /// already stays. Throws InvalidProperty for a negative limit.
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
    /// Replaces the selection by as much of the text as MaxLength leaves room for, and puts the
    /// caret after it.
    void SelText(std::string_view text);

    /// How many characters can replace the selection while there is a limit.
    std::size_t roomAtSelection() const;

    void SetFocus();

    /// The user has changed the text in the window; raises Change when it differs.
    void typed(std::string_view text);

    void setTextView(TextBoxView* view) noexcept;

    /// The selection that was set last, for the view to apply.
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
