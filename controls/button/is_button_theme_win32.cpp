#include "controls/button/is_button_theme_win32.h"

#include <uxtheme.h>

#include "base/library_win32.h"

namespace velvox {
namespace {

constexpr int pushButtonPart = 1;

class SystemThemes : public ThemeLibrary {
 public:
    SystemThemes() {
        const HMODULE library = loadSystemLibrary(L"uxtheme.dll");
        open_ = findProcedure<Open>(library, "OpenThemeData");
        draw_ = findProcedure<Draw>(library, "DrawThemeBackground");
        close_ = findProcedure<Close>(library, "CloseThemeData");
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
