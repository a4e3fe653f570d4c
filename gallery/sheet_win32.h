// A window that fills a gallery page: captions and still pictures of buttons painted on it, live
// buttons as children.
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

/// A window that fills the client area of its parent.
WindowRequest filling(HWND parent, const wchar_t* className);

/// Bounds are in design pixels, of which 96 make an inch; the sheet scales them to the screen.
class Sheet : public Window {
 public:
    explicit Sheet(HWND parent);
    ~Sheet() override;

    /// Height 0 is one line.
    void write(const Bounds& at, std::string_view text, bool bold = false, bool centred = false);

    /// A still picture. `cue` draws the focus as after a key press.
    void draw(const Bounds& at, const ButtonLook& look, bool cue = false);

    /// A live button with its stored properties; `show` makes its window.
    isButton& add(const Bounds& at, std::string_view name, const PropertyBag& stored = {},
                  const ButtonAmbient& ambient = {});
    /// A button of the main window, in the colours that its skin gives it.
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
    void paint(HDC dc);

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
