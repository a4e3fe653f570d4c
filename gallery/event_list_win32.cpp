#include "gallery/event_list_win32.h"

#include "base/buffered_paint_win32.h"
#include "base/system_win32.h"

namespace velvox {

void PlainControl::create(const WindowRequest& request, const Font& font) {
    font_ = createFont(font);
    SystemControl::create(request);
    SendMessageW(handle(), WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()), FALSE);
}

std::optional<LRESULT> PlainControl::onMessage(UINT message, WPARAM wParam, LPARAM) {
    // Erases in memory only, not on the screen.
    if (message == WM_ERASEBKGND && WindowFromDC(reinterpret_cast<HDC>(wParam)) == handle())
        return 1;
    if (message != WM_PAINT || wParam) return std::nullopt;
    const RECT client = clientArea(handle());
    const PaintScope painting(handle());
    const BufferedPaint buffer(painting.dc(), client);
    const auto target = reinterpret_cast<WPARAM>(buffer.dc());
    defaultHandling(handle(), WM_ERASEBKGND, target, 0);
    defaultHandling(handle(), WM_PRINTCLIENT, target, PRF_CLIENT);
    return 0;
}

void EventList::create(HWND parent, const RECT& bounds) {
    list_.create({.className = L"LISTBOX",
                  .style = WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_BORDER | WS_TABSTOP |
                           LBS_NOINTEGRALHEIGHT | LBS_NOSEL,
                  .bounds = bounds,
                  .parent = parent});
}

void EventList::add(std::string_view source, std::string_view event, std::string_view detail) {
    constexpr WPARAM maxLines = 500;
    std::string line = std::string(source) + "   " + std::string(event);
    if (!detail.empty()) line += "  (" + std::string(detail) + ")";
    const HWND list = list_.handle();
    if (line == lastLine_) {
        SendMessageW(list, LB_DELETESTRING, 0, 0);
        ++repeats_;
    } else {
        repeats_ = 1;
    }
    lastLine_ = line;
    if (repeats_ > 1) line += "  \xC3\x97 " + std::to_string(repeats_);
    SendMessageW(list, LB_INSERTSTRING, 0, reinterpret_cast<LPARAM>(widen(line).c_str()));
    SendMessageW(list, LB_DELETESTRING, maxLines, 0);
    SendMessageW(list, LB_SETTOPINDEX, 0, 0);
}

}  // namespace velvox
