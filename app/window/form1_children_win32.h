// The contents of the main window: the form and a window for each of its controls.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "app/browser/web_browser_win32.h"
#include "app/form1/form1_design.h"
#include "app/pane/result_pane_win32.h"
#include "app/window/click_target_win32.h"
#include "app/window/form1_win32.h"
#include "app/window/picture_box_win32.h"
#include "app/window/timer_win32.h"
#include "controls/text_box/xp_text_box_win32.h"

namespace velvox {

/// The members are created in order. The windows of the boxes, the pane and the preview come before
/// the form, which uses them; the windows that observe the form's controls come after it.
struct Form1Window::Children {
    explicit Children(Form1Window& owner);

    /// The window of a control; the main window for an empty name.
    HWND handle(std::string_view name) const;

    // Some pieces of the title bar have no window and are drawn by the main window. This observer
    // repaints the main window when such a piece moves.
    struct RepaintingObserver : ControlObserver {
        explicit RepaintingObserver(HWND owner) : window(owner) {}
        void controlChanged(ControlChange) override { InvalidateRect(window, nullptr, FALSE); }
        HWND window;
    };

    HWND window;
    PictureBoxWindow topendskin, Picture1, outer;
    ResultPaneWindow output;
    WebBrowserWindow web;
    Form1 form;
    RepaintingObserver titleObserver;
    std::vector<std::unique_ptr<ControlObserver>> windows;
    XPTextBoxWindow* linkin = nullptr;  ///< one of `windows`
    std::optional<ClickTarget> quitTarget;
    std::array<WindowTimer, 5> timers;

 private:
    void create(const ControlDesign& design, const Form1Window& owner);

    template <class Model>
    Model& model(const ControlDesign& design) {
        return dynamic_cast<Model&>(form.control(design.name));
    }

    template <class View, class... Arguments>
    View& add(Arguments&&... arguments) {
        auto view = std::make_unique<View>(std::forward<Arguments>(arguments)...);
        View& added = *view;
        windows.push_back(std::move(view));
        return added;
    }
};

}  // namespace velvox
