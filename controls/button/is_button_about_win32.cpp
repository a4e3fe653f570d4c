#include "controls/button/is_button_about_win32.h"

#include <cstdint>
#include <string>
#include <vector>

#include "base/system_win32.h"

namespace velvox {
namespace {

// A dialog template in memory: 16-bit words, each item starting on a 32-bit boundary.
class Template {
 public:
    void word(unsigned value) { words_.push_back(static_cast<std::uint16_t>(value)); }
    void dword(DWORD value) {
        word(value & 0xFFFF);
        word(value >> 16);
    }
    void text(std::wstring_view value) {
        for (const wchar_t c : value) word(c);
        word(0);
    }
    void item(DWORD style, short x, short y, short width, short height, unsigned id,
              unsigned windowClass, std::wstring_view caption) {
        if (words_.size() % 2 != 0) word(0);
        dword(style | WS_CHILD | WS_VISIBLE);
        dword(0);
        for (const short side : {x, y, width, height}) word(static_cast<unsigned>(side));
        word(id);
        word(0xFFFF);
        word(windowClass);
        text(caption);
        word(0);
    }
    const DLGTEMPLATE* get() const { return reinterpret_cast<const DLGTEMPLATE*>(words_.data()); }

 private:
    std::vector<std::uint16_t> words_;
};

constexpr unsigned buttonClass = 0x0080;
constexpr unsigned staticClass = 0x0082;

// Dialog units.
constexpr short boxWidth = 150;
constexpr short boxHeight = 58;
constexpr short margin = 7;
constexpr short textHeight = 9;
constexpr short closeWidth = 50;
constexpr short closeHeight = 14;

INT_PTR CALLBACK aboutProcedure(HWND box, UINT message, WPARAM wParam, LPARAM) noexcept {
    if (message == WM_INITDIALOG) return TRUE;
    if (message != WM_COMMAND) return FALSE;
    // Escape and the frame's own button come as IDCANCEL, Close as IDOK.
    if (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL) EndDialog(box, 0);
    return TRUE;
}

}  // namespace

void showButtonAbout(HWND owner, std::string_view version) {
    Template box;
    box.dword(DS_MODALFRAME | DS_CENTER | DS_SHELLFONT | WS_POPUP | WS_CAPTION | WS_SYSMENU);
    box.dword(0);
    box.word(2);
    for (const short side : {short{0}, short{0}, boxWidth, boxHeight})
        box.word(static_cast<unsigned>(side));
    box.word(0);
    box.word(0);
    box.text(L"About isButton " + widen(version));
    box.word(8);
    box.text(L"MS Shell Dlg");
    box.item(SS_CENTER | SS_NOPREFIX, margin, 2 * margin, boxWidth - 2 * margin, textHeight,
             static_cast<unsigned>(-1), staticClass, L"Version " + widen(version));
    box.item(BS_DEFPUSHBUTTON | WS_TABSTOP, (boxWidth - closeWidth) / 2,
             boxHeight - margin - closeHeight, closeWidth, closeHeight, IDOK, buttonClass,
             L"Close");
    DialogBoxIndirectParamW(GetModuleHandleW(nullptr), box.get(), owner, &aboutProcedure, 0);
}

}  // namespace velvox
