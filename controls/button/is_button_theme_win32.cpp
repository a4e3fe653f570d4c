#include "controls/button/is_button_theme_win32.h"

#include <uxtheme.h>

namespace velvox {
namespace {

constexpr int pushButtonPart = 1;

class SystemThemes : public ThemeLibrary {
 public:
    SystemThemes() : library_(LoadLibraryW(L"uxtheme.dll")) {
        if (!library_) return;
        const HMODULE module = library_.get();
        open_ = reinterpret_cast<Open>(
            reinterpret_cast<void*>(GetProcAddress(module, "OpenThemeData")));
        draw_ = reinterpret_cast<Draw>(
            reinterpret_cast<void*>(GetProcAddress(module, "DrawThemeBackground")));
        close_ = reinterpret_cast<Close>(
            reinterpret_cast<void*>(GetProcAddress(module, "CloseThemeData")));
    }

    bool drawPushButton(HWND window, HDC dc, int state, const RECT& area) override {
        if (!open_ || !draw_ || !close_) return false;
        const HTHEME theme = open_(window, L"Button");
        if (!theme) return false;
        const HRESULT drawn = draw_(theme, dc, pushButtonPart, state, &area, &area);
        close_(theme);
        return SUCCEEDED(drawn);
    }

 private:
    using Open = decltype(&OpenThemeData);
    using Draw = decltype(&DrawThemeBackground);
    using Close = decltype(&CloseThemeData);

    OwnedLibrary library_;
    Open open_ = nullptr;
    Draw draw_ = nullptr;
    Close close_ = nullptr;
};

}  // namespace

ThemeLibrary& systemThemes() {
    static SystemThemes themes;
    return themes;
}

}  // namespace velvox
