#include "app/pane/link_text_win32.h"

#include <richedit.h>
#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "app/pane/rich_edit_win32.h"
#include "app/pane/save_text_file_win32.h"
#include "base/clipboard_win32.h"
#include "base/system_win32.h"
#include "base/web_address.h"

namespace velvox {

LinkText::LinkText(HWND parent, const RECT& pixels, Desktop& desktop) : desktop_(desktop) {
    // The control's own drag and drop is off, so that dropped addresses reach the main window.
    create({.className = richEditClass(),
            .style = WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_READONLY |
                     ES_NOOLEDRAGDROP,
            .bounds = pixels,
            .parent = parent,
            .id = 1});
    SendMessageW(handle(), EM_EXLIMITTEXT, 0, 0x7FFFFFFE);
    SendMessageW(handle(), EM_SETUNDOLIMIT, 0, 0);
    SendMessageW(handle(), EM_SETBKGNDCOLOR, TRUE, 0);
    // By default the control scales fonts by the system's resolution, not by screenDpi().
    if (screenDpi() != systemDpi())
        SendMessageW(handle(), EM_SETZOOM, static_cast<WPARAM>(screenDpi()), systemDpi());

    tip_.emplace(handle());
}

LinkText::~LinkText() {
    tip_.reset();
    if (handle()) DestroyWindow(handle());
}

void LinkText::show(RichText text, const TextView& view) {
    hideTip();
    pressed_ = nullptr;
    links_.clear();
    painted_ = false;
    SendMessageW(handle(), WM_SETREDRAW, FALSE, 0);
    SetWindowTextW(handle(), L"");
    // RTF has no control word for links. Wine's control gives streamed text the format at the
    // insertion point, so a text that is one link throughout becomes a link while it streams in.
    // Formatting it afterwards would increase the time by half.
    const bool allLink =
        text.spans.size() == 1 && text.spans[0].begin == 0 && text.spans[0].end + 1 >= text.length;
    formatSelectionAsLink(handle(), allLink);
    streamRichText(handle(), text.rtf);
    markLinks(text, allLink);
    setSelection(handle(), view.selection.begin, view.selection.end);
    POINT scroll = view.scroll;
    SendMessageW(handle(), EM_SETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&scroll));
    SendMessageW(handle(), WM_SETREDRAW, TRUE, 0);
    links_ = std::move(text.links);
    lines_ = text.lines;
}

TextView LinkText::view() const {
    TextView view{.selection = selection()};
    SendMessageW(handle(), EM_GETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&view.scroll));
    return view;
}

// Gives the control's own link format to links that did not get it from the stream. The control
// needs time for each span. If there are more than maxMarkedSpans spans, links only look like
// links, but still work.
void LinkText::markLinks(const RichText& text, bool streamedAsLinks) {
    if (streamedAsLinks) {
        setSelection(handle(), 0, 1);
        CHARFORMAT2W format{};
        format.cbSize = sizeof format;
        SendMessageW(handle(), EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
        if (format.dwEffects & CFE_LINK) return;
    }
    if (text.spans.size() > maxMarkedSpans) return;
    for (const CharacterRange& span : text.spans) {
        setSelection(handle(), span.begin, span.end);
        formatSelectionAsLink(handle(), true);
    }
}

std::optional<LRESULT> LinkText::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    // Handling a message may destroy this object. The code below uses only local variables.
    const HWND control = handle();
    std::optional<LRESULT> result = onEvent(message, wParam, lParam);
    if (message == WM_NCDESTROY) return result;
    if (!result) result = defaultHandling(control, message, wParam, lParam);
    // Wine's control draws the selection only while it has the focus, but does not repaint itself.
    if (message == WM_SETFOCUS || message == WM_KILLFOCUS) InvalidateRect(control, nullptr, FALSE);
    destroyCaret(control);
    return result;
}

std::optional<LRESULT> LinkText::onEvent(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_GETDLGCODE: {
            // Enter is handled here while the caret is on a link. Tab and Escape are left to
            // IsDialogMessage. Without DLGC_HASSETSEL, a Tab into the control does not select the
            // whole text.
            const auto* key = reinterpret_cast<const MSG*>(lParam);
            const bool enter = key && key->message == WM_KEYDOWN && key->wParam == VK_RETURN;
            return DLGC_WANTARROWS | (enter && currentLink() ? DLGC_WANTMESSAGE : 0);
        }
        case WM_SETFOCUS:
            // When Tab moves the focus here, the first link is selected, so that the user sees at
            // once that there is something to open.
            if (GetKeyState(VK_TAB) < 0 && !currentLink() && !links_.empty())
                select(links_.front());
            return std::nullopt;
        case WM_KEYDOWN: hideTip(); return onKey(wParam, (HIWORD(lParam) & KF_REPEAT) != 0);
        case WM_CHAR:
            if (wParam == '\r' || wParam == '\t') return 0;
            return std::nullopt;
        case WM_KILLFOCUS:
        case WM_MOUSELEAVE:
        case WM_MOUSEWHEEL:
        case WM_VSCROLL: hideTip(); return std::nullopt;
        case WM_PAINT:
            if (!std::exchange(painted_, true)) paintedAt_ = GetTickCount();
            return std::nullopt;
        case WM_CAPTURECHANGED: pressed_ = nullptr; return std::nullopt;
        case WM_SETCURSOR:
            if (LOWORD(lParam) != HTCLIENT || !pointerOverLink()) return std::nullopt;
            SetCursor(LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_HAND)));
            return TRUE;
        case WM_CONTEXTMENU: showMenu(lParam); return 0;
        case WM_COPY:
            if (!copySelectedAddresses()) return std::nullopt;
            return 0;
        case WM_COMMAND:
            if (lParam != 0 || HIWORD(wParam) != 0) return std::nullopt;
            perform(static_cast<LinkCommand>(LOWORD(wParam)));
            return 0;
        default:
            if (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST)
                return onPointer(message, wParam, lParam);
            if (message == WM_MOUSEHOVER) showTip({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
            return std::nullopt;
    }
}

std::optional<LRESULT> LinkText::onKey(WPARAM key, bool repeated) {
    const bool control = GetKeyState(VK_CONTROL) < 0;
    const bool modified = GetKeyState(VK_SHIFT) < 0 || control;
    switch (key) {
        case 'C':
        case VK_INSERT:
            if (!control || !copySelectedAddresses()) return std::nullopt;
            return 0;
        case VK_RETURN:
            if (!repeated && beganAfterPaint()) open(currentLink());
            return 0;
        case VK_ESCAPE:
        case VK_TAB: return 0;
        case VK_UP:
        case VK_DOWN:
            if (modified || !goToLink(key == VK_DOWN)) return std::nullopt;
            return 0;
        default: return std::nullopt;
    }
}

std::optional<LRESULT> LinkText::onPointer(UINT message, WPARAM wParam, LPARAM lParam) {
    const POINT point{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    switch (message) {
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK: return press(message, wParam, lParam);
        case WM_LBUTTONUP: release(wParam, lParam); return 0;
        case WM_RBUTTONUP: {
            POINT screen = point;
            ClientToScreen(handle(), &screen);
            showMenu(MAKELPARAM(screen.x, screen.y));
            return 0;
        }
        case WM_MOUSEMOVE: {
            const TextLink* link = linkUnder(point);
            if (link != tipped_) hideTip();
            trackHover();
            const LRESULT answer = defaultHandling(handle(), message, wParam, lParam);
            // On every move the control sets its own mouse pointer, so the hand has to be set
            // again.
            if (link && !(wParam & MK_LBUTTON))
                SetCursor(LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_HAND)));
            return answer;
        }
        default: return std::nullopt;
    }
}

// Whether the current input was made after the links had become visible. Earlier input, which
// waited in the queue, was meant for something else.
bool LinkText::beganAfterPaint() const {
    return painted_ && static_cast<LONG>(static_cast<DWORD>(GetMessageTime()) - paintedAt_) >= 0;
}

// Wine's control counts clicks itself. The word or line that it selects for repeated clicks lies
// beyond the text, and the next Right key then ends the program. So a double click selects a link
// here, and other repeated clicks select nothing.
LRESULT LinkText::press(UINT message, WPARAM wParam, LPARAM lParam) {
    const POINT point{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    const bool extending = (wParam & (MK_SHIFT | MK_CONTROL)) != 0;
    hideTip();
    pressed_ = nullptr;
    if (message == WM_LBUTTONDOWN && !extending && beganAfterPaint()) pressed_ = linkUnder(point);
    const HWND control = handle();
    const LRESULT answer = defaultHandling(control, message, wParam, lParam);
    const auto [begin, end] = selection();
    if (extending || begin == end) return answer;
    pressed_ = nullptr;
    const TextLink* link = message == WM_LBUTTONDBLCLK ? linkUnder(point) : nullptr;
    if (link) {
        select(*link);
    } else {
        POINTL asked{point.x, point.y};
        const auto nearest = static_cast<std::size_t>(
            SendMessageW(control, EM_CHARFROMPOS, 0, reinterpret_cast<LPARAM>(&asked)));
        setSelection(control, nearest, nearest);
    }
    return answer;
}

// A release is a click if it is on the pressed link and nothing has been selected meanwhile.
void LinkText::release(WPARAM wParam, LPARAM lParam) {
    const TextLink* pressed = std::exchange(pressed_, nullptr);
    defaultHandling(handle(), WM_LBUTTONUP, wParam, lParam);
    const auto [begin, end] = selection();
    if (pressed && begin == end &&
        linkUnder({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}) == pressed)
        open(pressed);
}

CharacterRange LinkText::selection() const {
    CHARRANGE range{};
    SendMessageW(handle(), EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
    return {static_cast<std::size_t>(range.cpMin), static_cast<std::size_t>(range.cpMax)};
}

const TextLink* LinkText::currentLink() const {
    return linkAt(links_, selection().begin);
}

bool LinkText::goToLink(bool down) {
    const auto [at, end] = selection();
    const TextLink* current = currentLink();
    const TextLink* link = down ? linkAfter(links_, at) : linkBefore(links_, at);
    // If the caret is on a link that is not selected, Up and Down select that link first.
    if (at == end && current) link = current;
    if (link)
        select(*link);
    else if (current)  // it stays selected, and the key scrolls to the text beyond it
        SendMessageW(handle(), WM_VSCROLL, down ? SB_LINEDOWN : SB_LINEUP, 0);
    return link || current;
}

void LinkText::select(const TextLink& link) {
    setSelection(handle(), link.begin, link.end);
    SendMessageW(handle(), EM_SCROLLCARET, 0, 0);
}

POINT LinkText::placeOf(std::size_t character) const {
    POINTL place{};
    SendMessageW(handle(), EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&place),
                 static_cast<LPARAM>(character));
    return {place.x, place.y};
}

const TextLink* LinkText::linkUnder(POINT point) const {
    if (links_.empty()) return nullptr;
    POINTL asked{point.x, point.y};
    const LRESULT nearest =
        SendMessageW(handle(), EM_CHARFROMPOS, 0, reinterpret_cast<LPARAM>(&asked));
    // For any point, the control returns the nearest gap between characters. The point is on the
    // character before this gap, on the one after it, or on no character.
    for (LRESULT at = std::max<LRESULT>(nearest - 1, 0); at <= nearest; ++at) {
        const auto character = static_cast<std::size_t>(at);
        const TextLink* link = linkAt(links_, character);
        if (!link) continue;
        const POINT from = placeOf(character);
        const POINT to = placeOf(character + 1);
        const int height = scaleLength(link->halfPoints, screenDpi(), 72 * 2) * 5 / 4;
        const bool endsLine = to.y != from.y;
        if (point.y >= from.y && point.y < from.y + height && point.x >= from.x &&
            (endsLine || point.x < to.x))
            return link;
    }
    return nullptr;
}

bool LinkText::pointerOverLink() const {
    POINT point;
    return GetCursorPos(&point) && ScreenToClient(handle(), &point) && linkUnder(point);
}

void LinkText::trackHover() {
    TRACKMOUSEEVENT request{sizeof request, TME_HOVER | TME_LEAVE, handle(), HOVER_DEFAULT};
    TrackMouseEvent(&request);
}

void LinkText::showTip(POINT point) {
    // No tip is shown after the result area has closed or while a menu is open, which the tip would
    // cover. A hover may be reported in both cases.
    if (!IsWindowVisible(handle())) return;
    GUITHREADINFO thread{};
    thread.cbSize = sizeof thread;
    if (GetGUIThreadInfo(GetCurrentThreadId(), &thread) && thread.hwndMenuOwner) return;
    const TextLink* link = linkUnder(point);
    if (!link || link == tipped_) return;
    ClientToScreen(handle(), &point);
    tip_->show(link->address, point);
    tipped_ = link;
}

void LinkText::hideTip() {
    if (std::exchange(tipped_, nullptr)) tip_->hide();
}

void LinkText::showMenu(LPARAM screenPoint) {
    hideTip();
    SetFocus(handle());
    POINT at{GET_X_LPARAM(screenPoint), GET_Y_LPARAM(screenPoint)};
    const TextLink* link = nullptr;
    if (screenPoint == -1) {  // opened by keyboard
        link = currentLink();
        const POINT place = link ? placeOf(link->begin) : POINT{};
        const RECT client = clientArea(handle());
        at = {std::clamp(place.x, 0L, client.right), std::clamp(place.y, 0L, client.bottom)};
        ClientToScreen(handle(), &at);
    } else {
        POINT point = at;
        ScreenToClient(handle(), &point);
        link = linkUnder(point);
        if (link) select(*link);
    }
    menuAddress_ = link ? link->address : std::string();

    const OwnedMenu menu(CreatePopupMenu());
    const auto add = [&](LinkCommand command, const wchar_t* text, bool enabled) {
        AppendMenuW(menu.get(), enabled ? MF_STRING : MF_STRING | MF_GRAYED,
                    static_cast<UINT_PTR>(command), text);
    };
    const bool openable = isWebAddress(menuAddress_);
    const bool anyOpenable = std::ranges::any_of(
        links_, [](const TextLink& each) { return isWebAddress(each.address); });
    add(LinkCommand::Open, L"&Open", openable);
    add(LinkCommand::CopyAddress, L"&Copy address", openable);
    add(LinkCommand::CopyAllAddresses, L"Copy &all addresses", anyOpenable);
    add(LinkCommand::SaveAllAddresses, L"&Save all addresses...", anyOpenable);
    if (openable) SetMenuDefaultItem(menu.get(), static_cast<UINT>(LinkCommand::Open), FALSE);
    // The chosen command arrives as WM_COMMAND. A write to the pane while the menu is open may
    // replace the text or destroy this control, so nothing of it is used after this call.
    TrackPopupMenu(menu.get(), TPM_RIGHTBUTTON, at.x, at.y, 0, handle(), nullptr);
}

void LinkText::perform(LinkCommand command) {
    switch (command) {
        case LinkCommand::Open:
            if (isWebAddress(menuAddress_)) desktop_.openAddress(std::string(menuAddress_));
            break;
        case LinkCommand::CopyAddress:
            if (isWebAddress(menuAddress_)) copyToClipboard(handle(), menuAddress_);
            break;
        case LinkCommand::CopyAllAddresses:
            if (const std::string list = addressList(links_); !list.empty())
                copyToClipboard(handle(), list);
            break;
        case LinkCommand::SaveAllAddresses:
            // This control may be destroyed while the dialog is open, so nothing of it is used
            // afterwards.
            if (const std::string list = addressList(links_); !list.empty())
                saveTextFile(GetAncestor(handle(), GA_ROOT), L"addresses.txt", list);
            break;
    }
}

// Copies the addresses of the selected links. Returns false if the control must copy the selected
// text itself, because the selection has no link that can be opened.
bool LinkText::copySelectedAddresses() {
    const CharacterRange selected = selection();
    std::string list = addressList(links_, selected);
    // With an empty selection, Wine's control would empty the clipboard.
    if (list.empty()) return selected.begin == selected.end;
    constexpr std::size_t lineEnd = 2;
    list.resize(list.size() - lineEnd);
    copyToClipboard(handle(), list);
    return true;
}

void LinkText::open(const TextLink* link) {
    if (!link || !isWebAddress(link->address)) return;
    // A copy, because opening an address may dispatch messages that replace the text.
    const std::string address = link->address;
    desktop_.openAddress(address);
}

}  // namespace velvox
