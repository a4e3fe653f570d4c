// Measures a press of Download in relation to bare requests, and the time of painting. Run it in a
// session with the replica sites.
#include <windows.h>

#include <winhttp.h>

#include "app/form1/form1_design.h"
#include "app/net/internet_session_win32.h"
#include "app/window/form1_win32.h"
#include "base/buffered_paint_win32.h"
#include "controls/button/is_button_win32.h"
#include "tests/app/pane/result_pane_fixture_win32.h"
#include "tests/metrics/metric.h"
#include "tests/support/example_addresses.h"

namespace velvox {
namespace {

/// Fetches a body with as few calls of WinHTTP as possible.
std::string fetchBare(HINTERNET session, const wchar_t* host, const wchar_t* path) {
    const OwnedInternet connection(WinHttpConnect(session, host, INTERNET_DEFAULT_HTTP_PORT, 0));
    const OwnedInternet owned(
        WinHttpOpenRequest(connection.get(), L"GET", path, nullptr, nullptr, nullptr, 0));
    const HINTERNET request = owned.get();
    std::string body;
    if (!WinHttpSendRequest(request, nullptr, 0, nullptr, 0, 0, 0) ||
        !WinHttpReceiveResponse(request, nullptr))
        throwLastError("WinHTTP");
    for (DWORD ready = 0; WinHttpQueryDataAvailable(request, &ready) && ready != 0;) {
        std::string piece(ready, '\0');
        DWORD got = 0;
        WinHttpReadData(request, piece.data(), ready, &got);
        body.append(piece, 0, got);
    }
    return body;
}

TEST(PressToLink, TakesLittleMoreThanItsRequests) {
    using Request = std::pair<const wchar_t*, const wchar_t*>;
    const struct {
        const char* name;
        std::string address;
        std::vector<Request> requests;
        double bound;
    } rows[] = {
        {"press to link, one request (Veoh)",
         exampleAddresses[3],
         {{L"www.veoh.com", L"/rest/video/v669398tRxFQc4d/details"}},
         1.2},
        {"press to link, two requests (Sevenload)",
         exampleAddresses[2],
         {{L"en.sevenload.com", L"/videos/s931TZW/HiB-auf-dem-CSD"},
          {L"api.sevenload.com", L"/api/player/id/s931TZW/locale/en_GB/sess/7c19e04bd2a85f63"}},
         1.3},
    };
    const OleScope ole;
    MessagePump pump;
    Form1Window window(pump, {});
    window.show();
    Form1& form = window.form();
    const OwnedInternet session(
        WinHttpOpen(nullptr, WINHTTP_ACCESS_TYPE_DEFAULT_PROXY, nullptr, nullptr, 0));
    for (const auto& row : rows) {
        std::vector<double> bare, own;
        // The two measurements alternate, so that other programs slow both.
        for (int i = 0; i < 41; ++i) {
            bare.push_back(fastest(1, [&] {
                for (const auto& [host, path] : row.requests)
                    EXPECT_FALSE(fetchBare(session.get(), host, path).empty());
            }));
            form.linkin.Enabled(true);
            form.linkin.Text(row.address);
            own.push_back(fastest(1, [&] { form.UniXPButton1.Click(); }));
            EXPECT_NE(windowText(GetDlgItem(GetDlgItem(window.handle(),
                                                       static_cast<int>(controlId("outer"))),
                                            static_cast<int>(controlId("output"))))
                          .find("<a href="),
                      std::string::npos);
            form.isButton1_Click();
            pumpFor(5);
        }
        const auto median = [](std::vector<double>& times) {
            std::sort(times.begin(), times.end());
            return times[times.size() / 2];
        };
        std::printf("%s: %.2f ms beside %.2f ms\n", row.name, median(own), median(bare));
        expectAtMost(row.name, median(own) / median(bare), row.bound);
    }
}

DWORD CALLBACK readMore(DWORD_PTR rest, LPBYTE buffer, LONG size, LONG* got) {
    auto& text = *reinterpret_cast<std::string_view*>(rest);
    const auto count = text.copy(reinterpret_cast<char*>(buffer), static_cast<std::size_t>(size));
    text.remove_prefix(count);
    *got = static_cast<LONG>(count);
    return 0;
}

using testing::ResultPaneTest;

TEST_F(ResultPaneTest, TakesLittleLongerForManyLinksThanTheBareControl) {
    constexpr int lines = 32767;
    const std::string html = testing::imageLines(lines);
    const std::string rtf = "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Tahoma;}}\\f0\\fs20 " +
                            testing::numbered("Download Image #\\par\n", lines) + '}';
    pane.DocumentHTML("");
    wchar_t name[32];
    GetClassNameW(text(), name, 32);
    double bare = 1e9, own = 1e9;
    for (int i = 0; i < 3; ++i) {
        const HWND control = child(name, WS_VISIBLE | WS_VSCROLL | ES_MULTILINE | ES_READONLY);
        SendMessageW(control, EM_EXLIMITTEXT, 0, 0x7FFFFFFE);
        SendMessageW(control, WM_SETREDRAW, FALSE, 0);
        std::string_view rest = rtf;
        EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(&rest), 0, &readMore};
        bare = std::min(bare, fastest(1, [&] {
                            SendMessageW(control, EM_STREAMIN, SF_RTF, testing::at(stream));
                        }));
        DestroyWindow(control);
        own = std::min(own, fastest(1, [&] { pane.DocumentHTML(html); }));
    }
    expectAtMost("32,767 links, beside the bare control", own / bare, 1.15);
}

// Other programs slow a paint for seconds at a time, so painting is repeated for longer than that.
TEST(Painting, OfEachStyleIsQuick) {
    const TestForm form({0, 0, 200, 100});
    const CurrentSystemColours colours;
    for (int style = 0; style <= 10; ++style) {
        isButton model("Button", colours);
        model.Caption("Download");
        model.Move(designOf("UniXPButton1").bounds);
        model.Style(style);
        const isButtonWindow button(model, form.handle(), 1);
        const WindowDc dc(button.handle());
        constexpr int tries = 100, times = 50;
        const double taken = fastest(tries, [&] {
            for (int i = 0; i < times; ++i)
                SendMessageW(button.handle(), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc.get()),
                             PRF_CLIENT);
            GdiFlush();
        });
        expectAtMost("painting style " + std::to_string(style), taken / times, 0.1, "ms");
    }
}

TEST(Painting, OfTheWholeWindowIsQuick) {
    const OleScope ole;
    MessagePump pump;
    Form1Window window(pump, {});
    window.show();
    pumpFor(300);
    expectAtMost("painting the whole window",
                 fastest(1000,
                         [&] {
                             RedrawWindow(window.handle(), nullptr, nullptr,
                                          RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
                             GdiFlush();
                         }),
                 3, "ms");
}

}  // namespace
}  // namespace velvox
