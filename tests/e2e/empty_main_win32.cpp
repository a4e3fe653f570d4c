// The smallest program that shows a painted window, for comparison with the start of Velvox.
#include <windows.h>

namespace {

__attribute__((force_align_arg_pointer)) LRESULT CALLBACK procedure(HWND window, UINT message,
                                                                    WPARAM wParam, LPARAM lParam) {
    if (message == WM_DESTROY) PostQuitMessage(0);
    return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR, int) {
    WNDCLASSW c{};
    c.lpfnWndProc = procedure;
    c.hInstance = instance;
    c.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
    c.lpszClassName = L"Empty";
    RegisterClassW(&c);
    const HWND window = CreateWindowW(L"Empty", L"Empty", WS_POPUP, 300, 300, 497, 297, nullptr,
                                      nullptr, instance, nullptr);
    ShowWindow(window, SW_SHOWDEFAULT);
    UpdateWindow(window);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
    return 0;
}
