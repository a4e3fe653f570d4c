// The page of the scroll bars: a container that shows a part of a large picture, and a list of the
// events that the container's bars raise.
#pragma once

#include <list>
#include <string_view>

#include "base/window_win32.h"
#include "controlkit/scroll_container_win32.h"
#include "controlkit/virtual_dc_win32.h"
#include "gallery/event_list_win32.h"
#include "gallery/page_win32.h"

namespace velvox {

/// A large picture with buttons on it. The view can never show all buttons at once.
class LargePicture : public Window {
 public:
    explicit LargePicture(HWND parent);
    ~LargePicture() override { destroy(); }

 private:
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void draw();

    clsVirtualDC picture_;
    std::list<PlainControl> buttons_;
};

class ScrollPage : public Page, private Window {
 public:
    ~ScrollPage() override { destroy(); }

    std::string_view title() const override { return "Scroll bars"; }
    void create(HWND parent) override;

 private:
    struct Layout;

    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void createControls(const Layout& layout);
    void listen(ScrollBarWindow& bar, std::string_view name);
    void paint(HDC target);

    clsVirtualDC surface_;
    tsScrollContainer container_;
    std::optional<LargePicture> picture_;
    tsHScrollPrivate colourful_;
    tsHScrollPrivate disabled_;
    EventList events_;
    PlainControl enabled_;
    PlainControl wheel_;
    PlainControl launch_;
};

}  // namespace velvox
