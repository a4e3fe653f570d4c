#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "base/ancestor_watch_win32.h"
#include "base/tool_tip_win32.h"
#include "base/window_win32.h"
#include "controls/text_box/xp_text_box.h"

namespace velvox {

/// The EDIT inside an XPTextBox.
class TextBoxWindow : public SystemControl, public TextBoxView {
 public:
    /// `colours` must outlive the window.
    TextBoxWindow(XPTextBox& box, HWND parent, const SystemColours& colours);
    ~TextBoxWindow() override;

    void controlChanged(ControlChange change) override;
    Selection selection() const override;
    void focus() override;

    /// The text's bounds in the parent's client area; the EDIT is centred in them.
    RECT bounds() const;

    /// Positions the EDIT; called after the parent's size has changed.
    void fit();

    /// Null while the box has no tool tip.
    HWND toolTip() const noexcept { return tip_.get(); }

    /// Returns the text that a paste of `text` inserts. When it is not set, a paste inserts the
    /// first line.
    std::function<std::string(std::string_view text)> pasted;

    /// The background brush of the text.
    HBRUSH background() const;

    /// Sets the text colours of `dc` and returns the background brush. The parent calls it for
    /// WM_CTLCOLOREDIT.
    HBRUSH colour(HDC dc);

 private:
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    std::optional<LRESULT> character(WPARAM unit, LPARAM lParam);
    void mouseMoved(WPARAM wParam, LPARAM lParam);
    void endPress();
    void applyFace();
    void applyToolTip();
    void limitText();
    void insert(std::string_view text);

    const XPTextBox& box_;
    TextBox& model_;
    const SystemColours& colours_;
    OwnedFont font_;
    OwnedBrush background_;
    std::string tipText_;
    OwnedToolTip tip_;
    bool setting_ = false;
    wchar_t firstOfPair_ = 0;   // typed high surrogate whose low surrogate has not arrived
    bool pressed_ = false;      // a release inside the EDIT will be a click
    AncestorWatch containers_;  // ends a press when an ancestor window is hidden or disabled
};

/// The window of an XPTextBox: frame and margin around the EDIT.
class XPTextBoxWindow : public Window, public ControlObserver {
 public:
    /// `colours` must outlive the window.
    XPTextBoxWindow(XPTextBox& model, HWND parent, int id, const SystemColours& colours);
    ~XPTextBoxWindow() override;

    void controlChanged(ControlChange change) override;
    HWND editHandle() const noexcept { return edit_->handle(); }
    /// Sets the function that returns the text to insert for a pasted text.
    void onPaste(std::function<std::string(std::string_view text)> pasted) {
        edit_->pasted = std::move(pasted);
    }
    /// Null while the box has no tool tip.
    HWND toolTip() const noexcept { return edit_->toolTip(); }

 private:
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void paint(HDC target) const;

    // Pic has no window of its own. This window shows Pic's colour; disabling Pic has no effect.
    struct PicObserver : ControlObserver {
        explicit PicObserver(XPTextBoxWindow& owner) : window(owner) {}
        void controlChanged(ControlChange change) override;
        XPTextBoxWindow& window;
    };

    XPTextBox& model_;
    const SystemColours& colours_;
    PicObserver picObserver_{*this};
    std::optional<TextBoxWindow> edit_;
};

}  // namespace velvox
