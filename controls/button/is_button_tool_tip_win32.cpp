#include "controls/button/is_button_tool_tip_win32.h"

#include <string>

#include "base/system_win32.h"
#include "base/tool_tip_win32.h"

namespace velvox {
namespace {

constexpr DWORD plainTip = 3;
constexpr DWORD balloonTip = 67;
constexpr int balloonType = 1;
constexpr UINT subclassed = 16;
constexpr UINT centredTool = 18;

static_assert(plainTip == (TTS_ALWAYSTIP | TTS_NOPREFIX));
static_assert(balloonTip == (plainTip | TTS_BALLOON));
static_assert(subclassed == TTF_SUBCLASS && centredTool == (TTF_SUBCLASS | TTF_CENTERTIP));

// Converts text to the system's code page for the A versions of the tool tip messages.
std::string ansi(std::string_view bytes) {
    const std::wstring wide = widen(bytes);
    const int from = static_cast<int>(wide.size());
    std::string text(static_cast<std::size_t>(WideCharToMultiByte(CP_ACP, 0, wide.data(), from,
                                                                  nullptr, 0, nullptr, nullptr)),
                     '\0');
    WideCharToMultiByte(CP_ACP, 0, wide.data(), from, text.data(), static_cast<int>(text.size()),
                        nullptr, nullptr);
    return text;
}

LPARAM pointerTo(const void* data) {
    return reinterpret_cast<LPARAM>(data);
}

class SystemToolTips : public ToolTipSystem {
 public:
    HWND create(DWORD style, HWND owner) override {
        const HWND tip = createToolTip(owner, style);
        if (tip) ++liveHandles();
        return tip;
    }
    void send(HWND tip, UINT message, WPARAM wParam, LPARAM lParam) override {
        SendMessageW(tip, message, wParam, lParam);
    }
    void destroy(HWND tip) override {
        --liveHandles();
        destroyToolTip(tip);
    }
};

}  // namespace

static_assert(TTM_ADDTOOLA == 1028 && TTM_SETTITLEA == 1056);
static_assert(TTM_SETTIPTEXTCOLOR == 1044 && TTM_SETTIPBKCOLOR == 1043);

ToolTipSystem& systemToolTips() {
    static SystemToolTips tips;
    return tips;
}

void ToolTip::show(const ButtonToolTip& record, HWND owner) {
    std::string text = ansi(record.text);
    destroy();
    window_ = system_.create(record.type == balloonType ? balloonTip : plainTip, owner);
    if (!window_) return;

    TTTOOLINFOA tool{};
    // Every version of the common controls library accepts the smallest size.
    tool.cbSize = TTTOOLINFOA_V1_SIZE;
    tool.uFlags = record.centred ? centredTool : subclassed;
    tool.hwnd = owner;
    tool.uId = 0;
    tool.rect = clientArea(owner);
    tool.hinst = GetModuleHandleW(nullptr);
    tool.lpszText = text.data();
    system_.send(window_, TTM_ADDTOOLA, 0, pointerTo(&tool));

    if (!record.title.empty() || record.icon != 0)
        system_.send(window_, TTM_SETTITLEA, static_cast<WPARAM>(record.icon),
                     pointerTo(ansi(record.title).c_str()));
    if (record.foreColour)
        system_.send(window_, TTM_SETTIPTEXTCOLOR, static_cast<WPARAM>(*record.foreColour), 0);
    if (record.backColour)
        system_.send(window_, TTM_SETTIPBKCOLOR, static_cast<WPARAM>(*record.backColour), 0);
}

void ToolTip::destroy() {
    if (!window_) return;
    system_.destroy(window_);
    window_ = nullptr;
}

}  // namespace velvox
