#include "app/pane/address_tip_win32.h"

#include "base/system_win32.h"

namespace velvox {
namespace {

constexpr std::size_t maxTipLength = 400;
constexpr int tipWidth = 480;        // pixels at 96 DPI
constexpr int tipBelowPointer = 20;  // pixels at 96 DPI

TTTOOLINFOW tipTool(HWND control) {
    return toolRecord(control, TTF_TRACK | TTF_ABSOLUTE, 1);
}

}  // namespace

AddressTip::AddressTip(HWND owner)
    : owner_(owner), window_(createToolTip(owner, TTS_NOPREFIX | TTS_ALWAYSTIP)) {
    TTTOOLINFOW tool = tipTool(owner_);
    SendMessageW(window_.get(), TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    SendMessageW(window_.get(), TTM_SETMAXTIPWIDTH, 0, scaled(tipWidth));
}

void AddressTip::show(std::string_view address, POINT screen) {
    text_ = widen(address.substr(0, maxTipLength));
    if (address.size() > maxTipLength) text_ += L"\x2026";
    TTTOOLINFOW tool = tipTool(owner_);
    tool.lpszText = text_.data();
    SendMessageW(window_.get(), TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
    SendMessageW(window_.get(), TTM_TRACKPOSITION, 0,
                 MAKELPARAM(screen.x, screen.y + scaled(tipBelowPointer)));
    SendMessageW(window_.get(), TTM_TRACKACTIVATE, TRUE, reinterpret_cast<LPARAM>(&tool));
}

void AddressTip::hide() noexcept {
    TTTOOLINFOW tool = tipTool(owner_);
    SendMessageW(window_.get(), TTM_TRACKACTIVATE, FALSE, reinterpret_cast<LPARAM>(&tool));
}

}  // namespace velvox
