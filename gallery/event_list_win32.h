// A list of the events that a page's controls raise, newest first.
#pragma once

#include <string>
#include <string_view>

#include "base/font.h"
#include "base/owned_win32.h"
#include "base/window_win32.h"

namespace velvox {

/// A standard control that reaches the screen in one copy.
class PlainControl : public SystemControl {
 public:
    void create(const WindowRequest& request, const Font& font = {});

 private:
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

    OwnedFont font_;
};

class EventList {
 public:
    /// `bounds` is in pixels of the parent's client area.
    void create(HWND parent, const RECT& bounds);

    /// Adds a line at the top. Consecutive equal lines become one line with a count.
    void add(std::string_view source, std::string_view event, std::string_view detail = {});

 private:
    PlainControl list_;
    std::string lastLine_;
    int repeats_ = 0;
};

}  // namespace velvox
