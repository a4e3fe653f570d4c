// The preview browser with a local server: on a system without an HTML engine, which is the default
// here, and with an engine that shows nothing.
#include <gtest/gtest.h>

#include "tests/support/local_server_win32.h"
// winsock2.h must be included before windows.h.
#include "app/browser/web_browser_win32.h"

#include <chrono>
#include <cstdlib>

#include "base/runtime_failure.h"
#include "base/system_win32.h"
#include "base/twips.h"
#include "tests/support/fallback_document_win32.h"
#include "tests/support/window_fixture_win32.h"

namespace velvox {
namespace {

using namespace std::string_literals;
using std::chrono::milliseconds;

using Kind = PreviewContent::Kind;
using Addresses = std::vector<std::string>;

constexpr const char* playerPath = "/p.swf?video_id=a%20%5B%5D%3A[x]&t=%41";
constexpr const char* strangePath = "/f/3?mediaURL=x%20%5By%5D.flv&q=[1]#part";

void answer(const Connection& to, const std::string& request) {
    const std::string html = "Content-Type: text/html; charset=utf-8";
    const struct {
        std::string path, status, header, body;
    } answers[] = {
        {"/page", "200 OK", html, std::string(12345, 'x')},
        {playerPath, "200 OK", "Content-Type: application/x-shockwave-flash", "FWS...."},
        {"/v/a", "303 See Other", "Location: "s + playerPath, ""},
        {"/f", "302 Found", "Location: /f/2", ""},
        {"/f/2", "301 Moved", "Location: "s + strangePath, ""},
        {"/f/3?mediaURL=x%20%5By%5D.flv&q=[1]", "200 OK", html, "<p>"},
        {"/file", "302 Found", "Location: file:///C:/windows/win.ini", ""},
        {"/loop", "302 Found", "Location: /loop", ""},
        {"/none", "404 Not Found", html, "<p>Not here</p>"},
        {"/login", "401 Unauthorized", html + "\r\nWWW-Authenticate: Basic realm=\"r\"", "no"},
    };
    if (request.starts_with("GET /silent ")) to.wait(60'000);
    if (request.starts_with("GET /slow-loop ") && to.wait(200))
        to.write(LocalServer::reply("", "302 Found", "Location: /slow-loop\r\n"));
    if (request.starts_with("GET /drip ")) {
        to.write("HTTP/1.1 200 OK\r\nX: ");
        while (to.wait(50) && to.write("x")) continue;
    }
    if (request.starts_with("GET /endless ")) {
        to.write("HTTP/1.1 200 OK\r\nContent-Type: video/x-flv\r\n\r\n");
        while (to.wait(0) && to.write(std::string(4096, 'x'))) continue;
    }
    for (const auto& [path, status, header, body] : answers)
        if (request.starts_with("GET " + path + ' '))
            to.write(LocalServer::reply(body, status, header + "\r\n"));
}

void pumpMessages(int count) {
    MSG message;
    for (int i = 0; i < count; ++i) {
        if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageW(&message);
        else
            MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
    }
}

class WebBrowserTest : public testing::Test {
 protected:
    std::unique_ptr<WebBrowserWindow> makeWeb(milliseconds time = TransferLimits().time) {
        auto web = std::make_unique<WebBrowserWindow>(frame_.handle(), RECT{10, 10, 250, 190}, 7,
                                                      session_, TransferLimits{.time = time});
        web->DocumentComplete = [this, raw = web.get()] {
            arrivals_.push_back(raw->LocationURL());
        };
        return web;
    }

    bool arrives(std::size_t count = 1) {
        return pumpUntil([&] { return arrivals_.size() >= count; });
    }
    static bool fails(const WebBrowserWindow& web) {
        return pumpUntil([&] { return web.content().kind == Kind::Unreachable; });
    }
    /// The browser control's window, if one has been created.
    static HWND control(const WebBrowserWindow& web) { return GetWindow(web.handle(), GW_CHILD); }

    std::atomic<int> requests_{0};
    LocalServer server_{[this](const Connection& to, const std::string& request) {
        ++requests_;
        answer(to, request);
    }};
    TestForm frame_{{40, 40, 480, 380}};
    InternetSession session_;
    Addresses arrivals_;
};

TEST_F(WebBrowserTest, ArrivesAtTheFinalAddressByteForByteWithAndWithoutAnEngine) {
    const std::string blank = "about:blank";
    const struct {
        Kind kind;
        std::string from, to;
        DocumentInfo document;
        int requests;
    } rows[] = {
        {Kind::Blank, blank, blank, {}, 0},
        {Kind::NotRendered, "/page", "/page", {"text/html", 12345}, 1},
        {Kind::Unviewable, "/v/a", playerPath, {"application/x-shockwave-flash", 7}, 2},
        {Kind::NotRendered, "/f", strangePath, {"text/html", 3}, 3},
        {Kind::NotRendered, "/none", "/none", {"text/html", 15}, 1},
        {Kind::NotRendered, "/login", "/login", {"text/html", 2}, 1},
        {Kind::Unviewable, "/endless", "/endless", {"video/x-flv", {}}, 1},
        {Kind::Blank, blank, blank, {}, 0},
    };
    for (const bool engine : {false, true}) {
        std::optional<FallbackDocumentRegistration> fallback;
        if (engine) fallback.emplace();
        const auto web = makeWeb();
        for (const auto& row : rows) {
            SCOPED_TRACE(row.from + (engine ? " with an engine" : ""));
            arrivals_.clear();
            requests_ = 0;
            web->Navigate(row.from == blank ? blank : server_.address(row.from));
            EXPECT_TRUE(arrivals_.empty()) << "raised inside Navigate";
            arrives();
            pumpFor(60);
            const std::string to = row.to == blank ? blank : server_.address(row.to);
            EXPECT_EQ(arrivals_, Addresses{to});
            EXPECT_FALSE(web->Offline());
            const bool viewed = engine && row.kind == Kind::NotRendered;
            EXPECT_TRUE(!viewed || pumpUntil([&] { return IsWindowVisible(control(*web)); }));
            EXPECT_EQ(control(*web) != nullptr, viewed);
            EXPECT_EQ(requests_, row.requests + viewed);
            const PreviewContent panel{row.kind, row.to == blank ? "" : to, row.document};
            EXPECT_EQ(web->content(), panel);
        }
    }
}

TEST_F(WebBrowserTest, ThePanelSaysWhyNothingArrived) {
    const auto web = makeWeb(milliseconds(1000));
    const std::string noHost = "The host is not known";
    const std::pair<std::string, std::string> rows[] = {
        {"http://127.0.0.1:1/", "The host cannot be reached"},
        {"http://no-such-host.invalid/", noHost},
        {server_.address("/drop"), ""},
        {"", ""},
        {"C:\\windows\\win.ini", "Only http and https addresses can be fetched"},
        {server_.address("/file"), "Only http and https addresses can be fetched"},
        {server_.address("/silent"), "The server did not answer in time"},
        {server_.address("/drip"), "The server did not answer in time"},
        {server_.address("/loop"), "The page redirects too often"},
    };
    for (const auto& [address, reason] : rows) {
        SCOPED_TRACE(address);
        requests_ = 0;
        web->Navigate(address);
        EXPECT_TRUE(fails(*web));
        pumpFor(60);
        EXPECT_EQ(arrivals_, Addresses{});
        EXPECT_EQ(web->content().address, address);
        EXPECT_EQ(web->content().reason, reason.empty() ? web->content().reason : reason);
        EXPECT_EQ(requests_ > 1, address == server_.address("/loop"));
    }
    EXPECT_EQ(requests_, 11);
    web->Navigate(server_.address("/page"));
    ASSERT_TRUE(arrives());
    pumpFor(1100);
    EXPECT_EQ(web->content().kind, Kind::NotRendered) << "the timer outlived its navigation";
    EXPECT_EQ(arrivals_, Addresses{server_.address("/page")});
}

TEST_F(WebBrowserTest, NothingIsRequestedAfterTheTimeOrTheNextNavigation) {
    auto web = makeWeb(milliseconds(900));
    web->Navigate(server_.address("/slow-loop"));
    EXPECT_TRUE(fails(*web));
    const auto requestsAfter = [&] {
        pumpFor(100);  // requests that were already sent may still arrive
        const int before = requests_;
        pumpFor(500);
        return requests_ - before;
    };
    EXPECT_EQ(requestsAfter(), 0);
    for (const bool destroyed : {false, true}) {
        web->Navigate(server_.address("/slow-loop"));
        pumpFor(300);
        destroyed ? web.reset() : web->Navigate("about:blank");
        EXPECT_EQ(requestsAfter(), 0);
    }
    EXPECT_EQ(arrivals_, Addresses{"about:blank"});
}

TEST_F(WebBrowserTest, NavigationsThatAreCutShortNeitherSpeakNorStay) {
    const FallbackDocumentRegistration fallback;
    const std::string first[] = {"about:blank", server_.address("/page"),
                                 server_.address("/silent")};
    int before = 0;
    DWORD systemBefore = 0;
    DWORD systemAfter = 0;
    for (int i = 0; i < 48; ++i) {
        SCOPED_TRACE(i);
        auto web = makeWeb();
        web->Navigate("about:blank");
        // The last navigation of every browser is cut short by destroying the window. In every
        // second browser, an earlier navigation is also cut short by the next one.
        if (i % 2 == 0) {
            arrivals_.clear();
            ASSERT_TRUE(arrives());
            arrivals_.clear();
            web->Navigate(first[i % 3]);
            pumpMessages(i / 4);
            const std::size_t old = arrivals_.size();
            web->Navigate(server_.address("/v/a"));
            ASSERT_TRUE(arrives(old + 1));
            pumpFor(20);
            ASSERT_EQ(arrivals_.size(), old + 1);
            ASSERT_EQ(arrivals_.back(), server_.address(playerPath));
        }
        web->Navigate(server_.address(i % 4 == 1 ? "/v/a" : "/page"));
        pumpMessages(i);
        web.reset();
        pumpFor(i < 2 ? 60 : 5);
        if (i != 1) continue;
        before = liveHandles();
        GetProcessHandleCount(GetCurrentProcess(), &systemBefore);
    }
    pumpFor(60);
    GetProcessHandleCount(GetCurrentProcess(), &systemAfter);
    EXPECT_LE(liveHandles() - before, 20);
    EXPECT_LE(systemAfter, systemBefore + 20);
}

TEST_F(WebBrowserTest, TheHandlerMayThrowNavigateOrDestroyTheWindow) {
    auto web = makeWeb();
    std::string reported;
    setFailureReporter([&](std::string_view text) { reported += text; });
    web->DocumentComplete = [] { throw std::runtime_error("the handler failed"); };
    web->Navigate("about:blank");
    EXPECT_TRUE(pumpUntil([&] { return reported == "the handler failed"; }));
    setFailureReporter({});

    web->DocumentComplete = [&, captured = std::string(100, 'x')] {
        arrivals_.push_back(captured);
        if (arrivals_.size() < 3) return web->Navigate(server_.address("/v/a"));
        web.reset();
        arrivals_.push_back(captured);
    };
    web->Navigate(server_.address("/page"));
    EXPECT_TRUE(arrives(4));
    pumpFor(60);
    EXPECT_EQ(arrivals_, Addresses(4, std::string(100, 'x')));
}

TEST(PreviewPanelTest, ALongAddressLeavesRoomForTypeAndSize) {
    const int width = scaled(220);
    const int height = scaled(150);
    clsVirtualDC surface;
    surface.CreateMyDC(width, height);
    const PreviewPanel panel;
    const std::string address = "http://h/" + std::string(100'000, 'W');
    // The panel shows the size in its lower half, above the note, however long the address is.
    const auto sizeInk = [&](std::uint64_t size) {
        panel.paint(surface.hDC(), {0, 0, width, height},
                    {Kind::NotRendered, address, {"a/b", size}, {}});
        int ink = 0;
        for (int y = height / 2; y < height; ++y)
            for (int x = 0; x < width; ++x)
                ink += GetPixel(surface.hDC(), x, y) != GetSysColor(COLOR_WINDOW);
        return ink;
    };
    EXPECT_GT(sizeInk(123456789), sizeInk(1));
    // Painting in an area without room must not fail.
    for (const int side : {0, 1, 20})
        panel.paint(surface.hDC(), {0, 0, side, side}, {Kind::Unviewable, "http://h/", {}, {}});
}

// Runs in a separate process in which the system's browser control cannot be loaded.
TEST_F(WebBrowserTest, APageArrivesOnASystemWithoutTheControl) {
    if (!std::getenv("VELVOX_TEST_WITHOUT_BROWSER")) GTEST_SKIP() << "the control is there";
    const FallbackDocumentRegistration fallback;
    const auto web = makeWeb();
    web->Navigate(server_.address("/page"));
    EXPECT_TRUE(arrives());
    pumpFor(60);
    EXPECT_EQ(arrivals_, Addresses{server_.address("/page")});
    EXPECT_EQ(web->content().kind, Kind::NotRendered);
}

}  // namespace
}  // namespace velvox
