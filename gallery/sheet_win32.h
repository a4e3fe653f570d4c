// A window that fills a gallery page. It paints captions and still pictures of buttons; live
// buttons are its child windows.
#pragma once

#include <list>
#include <memory>
#include <string>
#include <vector>

#include "app/form1/form1_design.h"
#include "app/form1/skin_colours.h"
#include "base/system_win32.h"
#include "base/twips.h"
#include "base/window_win32.h"
#include "controls/button/is_button_win32.h"

namespace velvox {

constexpr Bounds inTwips(const Bounds& designPixels) {
    return {designPixels.left * designTwipsPerPixel, designPixels.top * designTwipsPerPixel,
            designPixels.width * designTwipsPerPixel, designPixels.height * designTwipsPerPixel};
}

/// Describes a child window that fills the client area of `parent`.
WindowRequest filling(HWND parent, const wchar_t* className);

/// Bounds are in pixels of a 96 dpi screen; the sheet scales them to the actual screen.
class Sheet : public Window {
 public:
    explicit Sheet(HWND parent);
    ~Sheet() override;

    /// Adds a text. Height 0 means one line.
    void write(const Bounds& at, std::string_view text, bool bold = false, bool centred = false);

    /// Adds a still picture of a button. `cue` draws the focus as after a key press.
    void draw(const Bounds& at, const ButtonLook& look, bool cue = false);

    /// Adds a live button with stored properties. The button's window is created only by `show`.
    isButton& add(const Bounds& at, std::string_view name, const PropertyBag& stored = {},
                  const ButtonAmbient& ambient = {});
    /// Adds a button of the main window in the colours of the main window's skin.
    isButton& add(const Bounds& at, const ControlDesign& design);
    void show(isButton& button);

    static std::shared_ptr<const Picture> sampleIcon(LPCWSTR systemIcon);

 private:
    struct Text {
        RECT at;
        std::wstring text;
        bool bold;
        bool centred;
    };
    struct Still {
        RECT at;
        ButtonLook look;
        bool cue;
    };
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void paint(HDC target);

    isButton& add(isButton& button, const Bounds& at, const PropertyBag& stored,
                  const ButtonAmbient& ambient);

    CurrentSystemColours colours_;
    SkinColours skinColours_{colours_};
    std::vector<Text> texts_;
    std::vector<Still> stills_;
    std::list<isButton> buttons_;
    std::list<isButtonWindow> windows_;
    OwnedFont font_;
    OwnedFont boldFont_;
};

}  // namespace velvox
