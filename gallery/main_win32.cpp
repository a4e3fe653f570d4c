// velvox-gallery: every control of the program in every state, live and as pictures.
//   velvox-gallery                                 shows the window
//   velvox-gallery --page N [--write FILE.bmp]     shows page N, or only writes it to FILE.bmp
#include <windows.h>

#include <commctrl.h>
#include <shellapi.h>

#include <cstdio>
#include <string>
#include <vector>

#include "app/resource.h"
#include "base/com_win32.h"
#include "base/library_win32.h"
#include "base/runtime_failure.h"
#include "base/system_win32.h"
#include "base/twips.h"
#include "base/window_win32.h"
#include "gallery/event_list_win32.h"
#include "gallery/page_win32.h"
#include "gallery/print_win32.h"
#include "gallery/sheet_win32.h"

namespace velvox {
namespace {

constexpr int listWidth = 160;
constexpr int listId = 1;

// The parent window of one page. Each page gets a new one, which stays hidden until it is complete.
class PageHost : public Window {
 public:
    explicit PageHost(HWND parent) {
        const int left = scaled(listWidth);
        create({.className = L"GalleryPage",
                .style = WS_CHILD | WS_CLIPCHILDREN,
                .extendedStyle = WS_EX_CONTROLPARENT,
                .bounds = {left, 0, left + scaled(pageWidth), scaled(pageHeight)},
                .parent = parent});
    }
    ~PageHost() override { destroy(); }

 private:
    std::optional<LRESULT> onMessage(UINT, WPARAM, LPARAM) override { return std::nullopt; }
};

BOOL CALLBACK passOn(HWND to, LPARAM message) {
    SendMessageW(to, static_cast<UINT>(message), 0, 0);
    return TRUE;
}

class GalleryWindow : public Window {
 public:
    GalleryWindow() : pages_(galleryPages()) {
        constexpr int captionRoom = 40;
        fitScreenDpi({(listWidth + pageWidth) * designTwipsPerPixel,
                      (pageHeight + captionRoom) * designTwipsPerPixel});
        constexpr DWORD style =
            WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX | WS_CLIPCHILDREN;
        RECT frame{0, 0, scaled(listWidth + pageWidth), scaled(pageHeight)};
        AdjustWindowRect(&frame, style, FALSE);
        create({.className = L"VelvoxGallery",
                .text = L"Velvox Gallery",
                .style = style,
                .bounds = {0, 0, frame.right - frame.left, frame.bottom - frame.top},
                .iconId = IDI_VELVOX});
        list_.create(
            {.className = L"LISTBOX",
             .style = WS_CHILD | WS_VISIBLE | WS_TABSTOP | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT,
             .bounds = {0, 0, scaled(listWidth), scaled(pageHeight)},
             .parent = handle(),
             .id = listId});
        for (const auto& page : pages_)
            SendMessageW(list_.handle(), LB_ADDSTRING, 0,
                         reinterpret_cast<LPARAM>(widen(page->title()).c_str()));
    }
    ~GalleryWindow() override {
        pages_.clear();
        host_.reset();
        destroy();
    }

    /// Shows a page. Throws RuntimeFailure (InvalidCall) if no page has this number.
    void open(std::size_t number) {
        if (number >= pages_.size())
            throw RuntimeFailure(Fault::InvalidCall, "There is no such page");
        SendMessageW(list_.handle(), LB_SETCURSEL, number, 0);
        // Destroys the previous page; pages are recreated on every visit. The page's host is
        // destroyed first, because that hides all windows of the page at once.
        host_.reset();
        pages_ = galleryPages();
        host_ = std::make_unique<PageHost>(handle());
        pages_[number]->create(host_->handle());
        ShowWindow(host_->handle(), SW_SHOW);
    }
    HWND page() const { return host_ ? host_->handle() : nullptr; }

 private:
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM) override {
        switch (message) {
            case WM_COMMAND:
                if (LOWORD(wParam) == listId && HIWORD(wParam) == LBN_SELCHANGE)
                    open(
                        static_cast<std::size_t>(SendMessageW(list_.handle(), LB_GETCURSEL, 0, 0)));
                return 0;
            case WM_ACTIVATE:
                if (LOWORD(wParam) == WA_INACTIVE) lastFocus_ = GetFocus();
                return std::nullopt;
            case WM_SETFOCUS:
                SetFocus(IsChild(handle(), lastFocus_) ? lastFocus_ : list_.handle());
                return 0;
            case WM_SYSCOLORCHANGE:
            case WM_SETTINGCHANGE:
            case WM_THEMECHANGED:
                // The system sends these messages only to top-level windows.
                EnumChildWindows(handle(), &passOn, static_cast<LPARAM>(message));
                RedrawWindow(handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
                return std::nullopt;
            case WM_CLOSE: PostQuitMessage(0); return 0;
            default: return std::nullopt;
        }
    }

    std::vector<std::unique_ptr<Page>> pages_;
    PlainControl list_;
    std::unique_ptr<PageHost> host_;
    HWND lastFocus_ = nullptr;  // gets the focus back when the window becomes active again
};

struct Options {
    std::size_t page = 0;
    std::string file;
};

Options readOptions() {
    int count = 0;
    LPWSTR* words = CommandLineToArgvW(GetCommandLineW(), &count);
    Options options;
    for (int i = 1; words && i + 1 < count; ++i) {
        if (std::wstring_view(words[i]) == L"--page")
            options.page = static_cast<std::size_t>(_wtoi(words[i + 1]));
        if (std::wstring_view(words[i]) == L"--write") options.file = narrow(words[i + 1]);
    }
    LocalFree(words);
    return options;
}

int run(int show) {
    const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_STANDARD_CLASSES | ICC_BAR_CLASSES};
    InitCommonControlsEx(&controls);
    const OleScope com;
    const Options options = readOptions();
    if (!options.file.empty())
        // A script waits for the program, and no user is there to close a message box.
        setFailureReporter([](std::string_view text) {
            std::fprintf(stderr, "velvox-gallery: %.*s\n", static_cast<int>(text.size()),
                         text.data());
        });
    GalleryWindow gallery;
    gallery.open(options.page);
    if (!options.file.empty()) {
        writePicture(gallery.page(), options.file);
        return 0;
    }
    ShowWindow(gallery.handle(), show);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (IsDialogMessageW(gallery.handle(), &message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return 0;
}

}  // namespace
}  // namespace velvox

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR, int show) {
    velvox::searchSystemFolderOnly();
    velvox::setFailureReporter([](std::string_view text) {
        MessageBoxW(nullptr, velvox::widen(text).c_str(), L"Velvox Gallery", MB_ICONEXCLAMATION);
    });
    try {
        return velvox::run(show);
    } catch (...) {
        velvox::reportCurrentFailure();
        return 1;
    }
}
