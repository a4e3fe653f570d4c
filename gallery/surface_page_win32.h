// The page of the off-screen surface: one card for each kind of drawing.
#pragma once

#include "base/window_win32.h"
#include "controlkit/virtual_dc_win32.h"
#include "gallery/page_win32.h"

namespace velvox {

class SurfacePage : public Page, private Window {
 public:
    ~SurfacePage() override { destroy(); }

    std::string_view title() const override { return "Drawing surface"; }
    void create(HWND parent) override;

 private:
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void paint(HDC target);
    void draw();

    clsVirtualDC surface_;
    bool isDrawn_ = false;
};

}  // namespace velvox
