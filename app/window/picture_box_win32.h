#pragma once

#include <functional>

#include "app/form1/form1_design.h"
#include "base/window_win32.h"
#include "controls/picture_box.h"

namespace velvox {

/// The window of a picture box: a container that draws its own background and returns notifications
/// to the children that sent them. The window is created before its model: see bind().
class PictureBoxWindow : public Window, public ControlObserver {
 public:
    /// Draws the background of the client area `client`.
    using Painter = std::function<void(HDC dc, const RECT& client)>;

    PictureBoxWindow(const ControlDesign& design, HWND parent, int id, Painter painter);
    ~PictureBoxWindow() override;

    /// Makes the window follow `model` and pass mouse presses on to it.
    void bind(PictureBox& model);

    void controlChanged(ControlChange change) override;

    /// Called before the box is hidden and after it has been shown.
    std::function<void(bool visible)> onVisible;
    /// Called after the box has been hidden.
    std::function<void()> onHidden;

 private:
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void paint(HDC target) const;

    Painter painter_;
    PictureBox* model_ = nullptr;
};

}  // namespace velvox
