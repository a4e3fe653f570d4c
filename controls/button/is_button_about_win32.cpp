#include "controls/button/is_button_about_win32.h"

#include "base/system_win32.h"

namespace velvox {
namespace {

constexpr int versionText = 100;  // control id in is_button_about.rc

struct AboutTexts {
    std::wstring caption, version;
};

INT_PTR CALLBACK aboutProcedure(HWND box, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    if (message == WM_INITDIALOG) {
        const auto& texts = *reinterpret_cast<const AboutTexts*>(lParam);
        SetWindowTextW(box, texts.caption.c_str());
        SetDlgItemTextW(box, versionText, texts.version.c_str());
        return TRUE;
    }
    // IDCANCEL comes from the "Close" button, from Escape and from the frame's close button.
    if (message == WM_COMMAND && LOWORD(wParam) == IDCANCEL) EndDialog(box, 0);
    return message == WM_COMMAND;
}

}  // namespace

void showButtonAbout(HWND owner, std::string_view version) {
    const AboutTexts texts{L"About isButton " + widen(version), L"Version " + widen(version)};
    if (DialogBoxParamW(GetModuleHandleW(nullptr), L"isButtonAbout", owner, &aboutProcedure,
                        reinterpret_cast<LPARAM>(&texts)) == -1)
        throwLastError("DialogBoxParam");
}

}  // namespace velvox
