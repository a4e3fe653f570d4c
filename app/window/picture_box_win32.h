#pragma once

#include <functional>

#include "app/form1/form1_design.h"
#include "base/window_win32.h"
#include "controls/picture_box.h"

namespace velvox {

/// The window of a picture box: a container that draws its own background and hands its children's
/// notifications back to them. It is created before the model that it later follows.
class PictureBoxWindow : public Window, public ControlObserver {
 public:
    /// Draws the background of a client area of this size.
    using Painter = std::function<void(HDC dc, const RECT& client)>;

    PictureBoxWindow(const ControlDesign& design, HWND parent, int id, Painter painter);
    ~PictureBoxWindow() override;

    /// From now on the window follows `model` and passes its mouse events on.
    void bind(PictureBox& model);

    void controlChanged(ControlChange change) override;

    /// Called before the box is hidden and after it has been shown.
    std::function<void(bool visible)> onVisible;

 private:
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void paint(HDC target) const;

    Painter painter_;
    PictureBox* model_ = nullptr;
};

}  // namespace velvox
