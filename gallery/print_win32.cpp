#include "gallery/print_win32.h"

#include <cstdio>
#include <memory>

#include "base/owned_win32.h"
#include "base/runtime_failure.h"
#include "base/system_win32.h"

namespace velvox {
namespace {

// Prints a window and then each child, because some systems do not pass WM_PRINTCLIENT on to
// children.
void print(HWND window, HDC dc, POINT origin) {
    const RECT client = clientArea(window);
    const int saved = SaveDC(dc);
    SetViewportOrgEx(dc, origin.x, origin.y, nullptr);
    IntersectClipRect(dc, 0, 0, client.right, client.bottom);
    const auto target = reinterpret_cast<WPARAM>(dc);
    SendMessageW(window, WM_ERASEBKGND, target, 0);
    SendMessageW(window, WM_PRINTCLIENT, target, PRF_CLIENT | PRF_ERASEBKGND);
    HWND child = GetWindow(window, GW_CHILD);
    if (child) child = GetWindow(child, GW_HWNDLAST);
    for (; child; child = GetWindow(child, GW_HWNDPREV)) {
        if ((GetWindowLongW(child, GWL_STYLE) & WS_VISIBLE) == 0) continue;
        POINT inner{0, 0};
        MapWindowPoints(child, window, &inner, 1);
        print(child, dc, {origin.x + inner.x, origin.y + inner.y});
    }
    RestoreDC(dc, saved);
}

}  // namespace

void writePicture(HWND window, const std::string& path) {
    const RECT client = clientArea(window);
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = client.right;
    info.bmiHeader.biHeight = -client.bottom;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    const OwnedMemoryDc dc(CreateCompatibleDC(nullptr));
    const OwnedBitmap bitmap(CreateDIBSection(dc.get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    if (!bitmap) throwLastError("CreateDIBSection");
    {
        const ScopedSelectObject selected(dc.get(), bitmap.get());
        print(window, dc.get(), {0, 0});
        GdiFlush();
    }
    const DWORD size = static_cast<DWORD>(client.right * client.bottom) * 4;
    BITMAPFILEHEADER head{};
    head.bfType = 0x4D42;  // "BM"
    head.bfOffBits = sizeof head + sizeof info.bmiHeader;
    head.bfSize = head.bfOffBits + size;
    // std::ofstream would add a megabyte to the program.
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(_wfopen(widen(path).c_str(), L"wb"),
                                                               &std::fclose);
    const auto write = [&](const void* data, std::size_t bytes) {
        return std::fwrite(data, 1, bytes, file.get()) == bytes;
    };
    if (!file || !write(&head, sizeof head) || !write(&info.bmiHeader, sizeof info.bmiHeader) ||
        !write(bits, size) || std::fflush(file.get()) != 0)
        throw RuntimeFailure(Fault::Platform, path + " cannot be written");
}

}  // namespace velvox
