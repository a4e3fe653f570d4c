// A list of the events that a page's controls raise, newest first.
#pragma once

#include <string>
#include <string_view>

#include "base/font.h"
#include "base/owned_win32.h"
#include "base/window_win32.h"

namespace velvox {

/// A control of the system, unchanged.
class PlainControl : public SystemControl {
 public:
    void create(const WindowRequest& request, const Font& font = {});

 private:
    std::optional<LRESULT> onMessage(UINT, WPARAM, LPARAM) override { return std::nullopt; }

    OwnedFont font_;
};

class EventList {
 public:
    /// `bounds` in pixels of the parent's client area.
    void create(HWND parent, const RECT& bounds);

    /// A run of equal lines becomes one that counts them.
    void add(std::string_view source, std::string_view event, std::string_view detail = {});

 private:
    PlainControl list_;
    std::string lastLine_;
    int repeats_ = 0;
};

}  // namespace velvox
