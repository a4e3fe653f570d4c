#include "gallery/print_win32.h"

#include <fstream>

#include "base/owned_win32.h"
#include "base/runtime_failure.h"
#include "base/system_win32.h"

namespace velvox {
namespace {

// Children are visited one by one, since not every system hands the request on to them.
void print(HWND window, HDC dc, POINT origin) {
    RECT client{};
    GetClientRect(window, &client);
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
    RECT client{};
    GetClientRect(window, &client);
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
        const Selected selected(dc.get(), bitmap.get());
        print(window, dc.get(), {0, 0});
        GdiFlush();
    }
    const DWORD size = static_cast<DWORD>(client.right * client.bottom) * 4;
    BITMAPFILEHEADER head{};
    head.bfType = 0x4D42;  // "BM"
    head.bfOffBits = sizeof head + sizeof info.bmiHeader;
    head.bfSize = head.bfOffBits + size;
    std::ofstream file(path, std::ios::binary);
    const auto write = [&](const void* data, DWORD bytes) {
        file.write(static_cast<const char*>(data), static_cast<std::streamsize>(bytes));
    };
    write(&head, sizeof head);
    write(&info.bmiHeader, sizeof info.bmiHeader);
    write(bits, size);
    if (!file.flush()) throw RuntimeFailure(Fault::Platform, path + " cannot be written");
}

}  // namespace velvox
