// The preview browser against a local server, on whatever engine the system has.
#include <gtest/gtest.h>

#include "tests/support/local_server_win32.h"
// winsock2.h has to come before windows.h.
#include "app/browser/web_browser_win32.h"

#include <chrono>
#include <cstdlib>

#include "base/runtime_failure.h"
#include "tests/support/window_fixture_win32.h"

namespace velvox {
namespace {

using namespace std::string_literals;

using Kind = PreviewContent::Kind;
using Addresses = std::vector<std::string>;

constexpr const char* playerPath = "/p.swf?video_id=a%20%5B%5D%3A[x]&t=%41";
constexpr const char* strangePath = "/f/3?mediaURL=x%20%5By%5D.flv&q=[1]";

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
        {strangePath, "200 OK", html, "<p>"},
        {"/file", "302 Found", "Location: file:///C:/windows/win.ini", ""},
        {"/none", "404 Not Found", html, "<p>Not here</p>"},
        {"/login", "401 Unauthorized", html + "\r\nWWW-Authenticate: Basic realm=\"r\"", "no"},
    };
    if (request.starts_with("GET /silent ")) to.wait(60'000);
    for (const auto& [path, status, header, body] : answers) {
        const std::string reply = LocalServer::reply(body, status, header + "\r\n");
        if (request.starts_with("GET " + path + ' ')) to.write(reply);
        if (request.starts_with("HEAD " + path + ' '))
            to.write(reply.substr(0, reply.size() - body.size()));
    }
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
    std::unique_ptr<WebBrowserWindow> makeWeb(UINT timeoutMs = WebBrowserWindow::answerTimeoutMs) {
        auto web = std::make_unique<WebBrowserWindow>(frame_.handle(), RECT{10, 10, 250, 190}, 7,
                                                      timeoutMs);
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

    LocalServer server_{answer};
    TestForm frame_{{40, 40, 480, 380}};
    Addresses arrivals_;
};

TEST_F(WebBrowserTest, ArrivesAtTheFinalAddressByteForByteAndTellsTypeAndSize) {
    const auto web = makeWeb();
    const std::string blank = "about:blank";
    const struct {
        Kind kind;
        std::string from, to;
        DocumentFacts facts;
    } rows[] = {
        {Kind::Blank, blank, blank, {}},
        {Kind::NotRendered, "/page", "/page", {"text/html", 12345}},
        {Kind::Unviewable, "/v/a", playerPath, {"application/x-shockwave-flash", 7}},
        {Kind::NotRendered, "/f", strangePath, {"text/html", 3}},
        {Kind::NotRendered, "/none", "/none", {"text/html", 15}},
        {Kind::NotRendered, "/login", "/login", {"text/html", 2}},
        {Kind::Blank, blank, blank, {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.from);
        arrivals_.clear();
        web->Navigate(row.from == blank ? blank : server_.address(row.from));
        EXPECT_TRUE(arrivals_.empty()) << "raised inside Navigate";
        arrives();
        pumpFor(60);
        const std::string to = row.to == blank ? blank : server_.address(row.to);
        EXPECT_EQ(arrivals_, Addresses{to});
        EXPECT_FALSE(web->Offline());
        if (systemHasHtmlEngine()) continue;  // which shows the pages themselves
        const PreviewContent told{row.kind, row.to == blank ? "" : to, row.facts};
        EXPECT_TRUE(pumpUntil([&] { return web->content() == told; }));
    }
}

TEST_F(WebBrowserTest, WhatCannotBeReachedIsNoArrival) {
    const auto web = makeWeb();
    for (const std::string& address :
         {"http://127.0.0.1:1/"s, "http://no-such-host.invalid/"s, server_.address("/drop"), ""s,
          "\xff\xfe\x01"s, "http://\0"s, "javascript:1"s, "C:\\windows\\win.ini"s, "no-scheme"s}) {
        SCOPED_TRACE(address);
        web->Navigate(address);
        EXPECT_TRUE(fails(*web));
        pumpFor(60);
        EXPECT_EQ(arrivals_, Addresses{});
        EXPECT_EQ(web->content().address, address);
    }
    // A redirect to a file is not followed, whatever becomes of it.
    web->Navigate(server_.address("/file"));
    arrives();
    EXPECT_EQ(web->LocationURL(), server_.address("/file"));
}

TEST_F(WebBrowserTest, AServerThatNeverAnswersIsLeftAfterTheTimeout) {
    constexpr DWORD timeout = 1000;
    const auto web = makeWeb(timeout);
    const DWORD start = GetTickCount();
    web->Navigate(server_.address("/silent"));
    ASSERT_TRUE(fails(*web));
    EXPECT_GE(GetTickCount() - start, timeout - 20);
    web->Navigate(server_.address("/page"));
    ASSERT_TRUE(arrives());
    pumpFor(timeout + 100);
    EXPECT_EQ(web->content().kind, Kind::NotRendered) << "the timer outlived its navigation";
    EXPECT_EQ(arrivals_, Addresses{server_.address("/page")});
}

// A control that is asked again while it is busy mixes the two documents up, at some moments only.
TEST_F(WebBrowserTest, NavigationsThatAreCutShortNeitherSpeakNorStay) {
    const std::string first[] = {"about:blank", server_.address("/page"),
                                 server_.address("/silent")};
    int before = 0;
    DWORD systemBefore = 0;
    DWORD systemAfter = 0;
    for (int i = 0; i < 48; ++i) {
        SCOPED_TRACE(i);
        auto web = makeWeb();
        web->Navigate("about:blank");
        // By another navigation, or by the end of the window alone.
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
    // Wine's control forgets itself, with a document and its reader, when it is closed at the
    // moment at which it takes the document over. Nothing of ours may stay behind as a rule.
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
    constexpr int width = 220;
    constexpr int height = 150;
    clsVirtualDC surface;
    surface.CreateMyDC(width, height);
    const PreviewPanel panel;
    const std::string address = "http://h/" + std::string(100'000, 'W');
    // The last rows above the note hold the size, whatever comes before.
    const auto sizeInk = [&](std::uint64_t size) {
        panel.paint(surface.hDC(), {0, 0, width, height},
                    {Kind::NotRendered, address, {"a/b", size}});
        int ink = 0;
        for (int y = height / 2; y < height; ++y)
            for (int x = 0; x < width; ++x)
                ink += GetPixel(surface.hDC(), x, y) != GetSysColor(COLOR_WINDOW);
        return ink;
    };
    EXPECT_GT(sizeInk(123456789), sizeInk(1));
    // No room at all is no reason to fail.
    for (const int side : {0, 1, 20})
        panel.paint(surface.hDC(), {0, 0, side, side}, {Kind::Unviewable, "http://h/", {}});
}

// Runs in a process of its own in which the system's control does not load.
TEST(WebBrowserMissingTest, NavigationsFailAndNothingElse) {
    if (!std::getenv("VELVOX_TEST_WITHOUT_BROWSER")) GTEST_SKIP() << "the control is there";
    const TestForm frame({40, 40, 480, 380});
    WebBrowserWindow web(frame.handle(), RECT{0, 0, 100, 100}, 1);
    int arrivals = 0;
    web.DocumentComplete = [&] { ++arrivals; };
    web.Navigate("about:blank");
    pumpFor(60);
    EXPECT_EQ(arrivals, 1);
    EXPECT_EQ(web.LocationURL(), "about:blank");
    EXPECT_THROW(web.Navigate("http://127.0.0.1/"), RuntimeFailure);
    EXPECT_THROW(web.Navigate("http://127.0.0.1/"), RuntimeFailure);
    EXPECT_EQ(web.LocationURL(), "");
    EXPECT_EQ(web.content().kind, Kind::Unreachable);
    EXPECT_NO_THROW(web.Navigate("about:blank")) << "the Download button begins with it";
    EXPECT_EQ(web.content().kind, Kind::Blank);
    pumpFor(60);
    EXPECT_EQ(arrivals, 2);
}

}  // namespace
}  // namespace velvox
