#pragma once

#include "base/owned_win32.h"
#include "base/window_win32.h"
#include "controls/text_box/xp_text_box.h"

namespace velvox {

/// The EDIT inside an XPTextBox.
class TextBoxWindow : public SystemControl, public TextBoxView {
 public:
    TextBoxWindow(TextBox& model, const PictureBox& container, HWND parent);
    ~TextBoxWindow() override;

    void follow(Aspect aspect) override;
    Selection selection() const override;
    void focus() override;

    /// Enabled as the box is, and never inside a disabled container.
    void followEnabled();

    /// Null while there is none.
    HWND toolTip() const noexcept { return tip_.get(); }

    /// What the box stands on.
    HBRUSH background() const;

    /// The background and text colours that the parent answers WM_CTLCOLOREDIT with.
    HBRUSH colour(HDC dc);

 private:
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void applyFace();
    void applyToolTip();
    void fit();

    TextBox& model_;
    const PictureBox& container_;
    OwnedFont font_;
    OwnedBrush background_;
    std::string tipText_;
    Owned<HWND, &DestroyWindow> tip_;
    bool setting_ = false;
};

/// The window of an XPTextBox: frame and margin around the EDIT.
class XPTextBoxWindow : public Window, public ControlView {
 public:
    XPTextBoxWindow(XPTextBox& model, HWND parent, int id);
    ~XPTextBoxWindow() override;

    void follow(Aspect aspect) override;
    HWND editHandle() const noexcept { return edit_->handle(); }
    /// Null while the box has no tool tip.
    HWND toolTip() const noexcept { return edit_->toolTip(); }

 private:
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void paint(HDC target) const;

    // Pic has no window of its own; what happens to it shows in this window.
    struct PicView : ControlView {
        explicit PicView(XPTextBoxWindow& owner) : window(owner) {}
        void follow(Aspect aspect) override;
        XPTextBoxWindow& window;
    };

    XPTextBox& model_;
    PicView picView_{*this};
    std::optional<TextBoxWindow> edit_;
};

}  // namespace velvox
