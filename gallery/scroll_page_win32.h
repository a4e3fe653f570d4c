// The page of the scroll bars: two bars move a large picture, and a list shows what they raise.
#pragma once

#include <string>
#include <string_view>

#include "base/owned_win32.h"
#include "base/window_win32.h"
#include "controlkit/scroll_bar_win32.h"
#include "controlkit/virtual_dc_win32.h"
#include "gallery/page_win32.h"
#include "gallery/scrolled_length.h"

namespace velvox {

/// A control of the system's, as it is.
class PlainControl : public SystemControl {
 public:
    using SystemControl::create;

 private:
    std::optional<LRESULT> onMessage(UINT, WPARAM, LPARAM) override { return std::nullopt; }
};

class ScrollPage : public Page, private Window {
 public:
    ~ScrollPage() override { destroy(); }

    std::string_view title() const override { return "Scroll bars"; }
    void create(HWND parent) override;

 private:
    struct Layout;

    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    ScrolledLength scrolledWidth() const;
    ScrolledLength scrolledHeight() const;
    void drawPicture();
    void createControls(const Layout& layout);
    void listen(ScrollBarWindow& bar, std::string_view name);
    void report(std::string_view bar, std::string_view event, std::string_view detail = {});
    void paint(HDC target);

    OwnedFont font_;
    clsVirtualDC picture_;
    clsVirtualDC surface_;
    RECT view_{};  // where the picture shows
    tsVScrollPrivate vertical_;
    tsHScrollPrivate horizontal_;
    tsHScrollPrivate colourful_;
    tsHScrollPrivate disabled_;
    PlainControl events_;
    PlainControl enabled_;
    PlainControl wheel_;
    PlainControl launch_;
    std::string lastLine_;
    int repeats_ = 0;
};

}  // namespace velvox
