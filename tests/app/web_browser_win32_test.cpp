// The preview browser against a local server, on whatever engine the system has.
#include <gtest/gtest.h>

#include "tests/support/local_server_win32.h"
// winsock2.h has to come before windows.h.
#include "app/web_browser_win32.h"

#include <chrono>
#include <cstdlib>
#include <map>

#include "base/runtime_failure.h"

namespace velvox {
namespace {

using namespace std::string_literals;

using Clock = std::chrono::steady_clock;
using Kind = PreviewContent::Kind;
using Addresses = std::vector<std::string>;

constexpr const char* playerPath = "/p.swf?video_id=a%20%5B%5D%3A[x]&t=%41";
constexpr const char* strangePath = "/f/3?mediaURL=x%20%5By%5D.flv&q=[1]";

std::string page(const std::string& status, const std::string& type, const std::string& body,
                 const std::string& moreHeader = {}) {
    return LocalServer::reply(body, status, "Content-Type: " + type + "\r\n" + moreHeader);
}

std::string redirect(const std::string& status, const std::string& location) {
    return LocalServer::reply("", status, "Location: " + location + "\r\n");
}

void answer(const Connection& to, const std::string& request) {
    std::map<std::string, std::string> answers = {
        {"/page", page("200 OK", "text/html; charset=utf-8", std::string(12345, 'x'))},
        {playerPath, page("200 OK", "application/x-shockwave-flash", "FWS....")},
        {"/v/a", redirect("303 See Other", playerPath)},
        {"/f", redirect("302 Found", "/f/2")},
        {"/f/2", redirect("301 Moved", strangePath)},
        {strangePath, page("200 OK", "text/html", "<p>")},
        {"/file", redirect("302 Found", "file:///C:/windows/win.ini")},
        {"/none", page("404 Not Found", "text/html", "<p>Not here</p>")},
        {"/login",
         page("401 Unauthorized", "text/html", "no", "WWW-Authenticate: Basic realm=\"r\"\r\n")},
    };
    const auto from = request.find(' ') + 1;
    const std::string path = request.substr(from, request.find(' ', from) - from);
    if (path == "/silent") to.wait(60'000);
    const std::string reply = answers[path];
    // Only the header of what is asked for with HEAD.
    to.write(
        reply.substr(0, request.starts_with("HEAD ") ? reply.find("\r\n\r\n") + 4 : reply.npos));
}

void pumpOne() {
    MSG message;
    if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        DispatchMessageW(&message);
    else
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
}

// Handles messages, one at a time, until something holds or the time is over.
template <class Condition>
bool pumpUntil(Condition holds, int milliseconds = 5000) {
    const auto deadline = Clock::now() + std::chrono::milliseconds(milliseconds);
    while (!holds()) {
        if (Clock::now() >= deadline) return false;
        pumpOne();
    }
    return true;
}

void settle(int milliseconds = 60) {
    pumpUntil([] { return false; }, milliseconds);
}

class Frame : public SystemControl {
 public:
    Frame() {
        WindowRequest request;
        request.className = L"STATIC";
        request.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE;
        request.bounds = {40, 40, 440, 340};
        create(request);
    }

 private:
    std::optional<LRESULT> onMessage(UINT, WPARAM, LPARAM) override { return std::nullopt; }
};

class WebBrowserTest : public testing::Test {
 protected:
    static void SetUpTestSuite() {
        // The local server is reached directly, whatever the session's proxy.
        SetEnvironmentVariableW(L"http_proxy", nullptr);
    }

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
    static bool becomes(const WebBrowserWindow& web, Kind kind) {
        return pumpUntil([&] { return web.content().kind == kind; });
    }

    LocalServer server_{answer};
    Frame frame_;
    Addresses arrivals_;
};

TEST_F(WebBrowserTest, ArrivesAtTheFinalAddressByteForByte) {
    const auto web = makeWeb();
    const std::pair<std::string, std::string> rows[] = {
        {"about:blank", "about:blank"},
        {server_.address("/v/a"), server_.address(playerPath)},
        {server_.address("/f"), server_.address(strangePath)},
        {server_.address("/none"), server_.address("/none")},
        {server_.address("/login"), server_.address("/login")},
        {"about:blank", "about:blank"},
    };
    for (const auto& [from, to] : rows) {
        arrivals_.clear();
        web->Navigate(from);
        EXPECT_TRUE(arrivals_.empty()) << "raised inside Navigate: " << from;
        arrives();
        settle();
        EXPECT_EQ(arrivals_, Addresses{to}) << from;
        EXPECT_FALSE(web->Offline());
    }
}

TEST_F(WebBrowserTest, WhatCannotBeReachedIsNoArrival) {
    const auto web = makeWeb();
    for (const std::string& address :
         {"http://127.0.0.1:1/"s, "http://no-such-host.invalid/"s, server_.address("/drop"), ""s,
          "\xff\xfe\x01"s, "http://\0"s, "javascript:1"s, "C:\\windows\\win.ini"s, "no-scheme"s}) {
        SCOPED_TRACE(address);
        web->Navigate(address);
        EXPECT_TRUE(becomes(*web, Kind::Unreachable));
        settle();
        EXPECT_EQ(arrivals_, Addresses{});
        EXPECT_EQ(web->content().address, address);
    }
    // A redirect to a file is not followed.
    web->Navigate(server_.address("/file"));
    pumpUntil([&] { return !arrivals_.empty() || web->content().kind == Kind::Unreachable; });
    settle();
    EXPECT_EQ(web->LocationURL(), server_.address("/file"));
}

TEST_F(WebBrowserTest, AServerThatNeverAnswersIsLeftAfterTheTimeout) {
    constexpr UINT timeout = 300;
    const auto web = makeWeb(timeout);
    const auto start = Clock::now();
    web->Navigate(server_.address("/silent"));
    ASSERT_TRUE(becomes(*web, Kind::Unreachable));
    const auto waited = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start);
    EXPECT_GE(waited.count(), timeout - 20);
    EXPECT_LT(waited.count(), timeout + 500);
    EXPECT_TRUE(arrivals_.empty());

    web->Navigate(server_.address("/page"));
    ASSERT_TRUE(arrives());
    settle(timeout + 100);
    EXPECT_EQ(web->content().kind, Kind::NotRendered) << "the timer outlived its navigation";
}

// A control that is asked again while it is busy mixes the two documents up, at some moments only.
TEST_F(WebBrowserTest, ASupersededNavigationNeverSpeaksForTheNewOne) {
    const auto web = makeWeb();
    web->Navigate("about:blank");
    ASSERT_TRUE(arrives());
    const std::string first[] = {"about:blank", server_.address("/page"),
                                 server_.address("/silent")};
    for (int i = 0; i < 36; ++i) {
        const int messages = i % 12;
        SCOPED_TRACE(messages);
        arrivals_.clear();
        web->Navigate(first[i / 12]);
        for (int j = 0; j < messages; ++j) pumpOne();
        const std::size_t before = arrivals_.size();
        web->Navigate(server_.address("/v/a"));
        ASSERT_TRUE(arrives(before + 1));
        settle(20);
        ASSERT_EQ(arrivals_.size(), before + 1);
        ASSERT_EQ(arrivals_.back(), server_.address(playerPath));
    }
}

TEST_F(WebBrowserTest, TheHandlerMayThrowNavigateOrDestroyTheWindow) {
    auto web = makeWeb();
    std::string reported;
    setFailureReporter([&](std::string_view text) { reported += text; });
    web->DocumentComplete = [] { throw std::runtime_error("the handler failed"); };
    web->Navigate("about:blank");
    EXPECT_TRUE(pumpUntil([&] { return reported == "the handler failed"; }));
    setFailureReporter({});

    web->DocumentComplete = [&] {
        arrivals_.push_back(web->LocationURL());
        if (arrivals_.size() < 3) web->Navigate(server_.address("/v/a"));
    };
    web->Navigate(server_.address("/page"));
    EXPECT_TRUE(arrives(3));

    bool destroyed = false;
    web->DocumentComplete = [&, captured = std::string(100, 'x')] {
        web.reset();
        destroyed = captured.size() == 100;
    };
    web->Navigate(server_.address("/page"));
    EXPECT_TRUE(pumpUntil([&] { return destroyed; }));
    settle();
}

TEST_F(WebBrowserTest, DestroyingTheWindowDuringANavigationReleasesEverything) {
    { makeWeb()->Navigate("about:blank"); }
    settle();
    const int before = liveHandles();
    for (int messages = 0; messages < 40; ++messages) {
        auto web = makeWeb();
        web->Navigate("about:blank");
        web->Navigate(server_.address(messages % 2 == 0 ? "/v/a" : "/page"));
        for (int i = 0; i < messages; ++i) pumpOne();
        web.reset();
        settle(5);
    }
    settle();
    // Wine's control forgets itself, with a document and its reader, when it is closed at the
    // moment at which it takes the document over. Nothing of ours may stay behind as a rule.
    EXPECT_LE(liveHandles() - before, 20);
}

TEST_F(WebBrowserTest, ManyNavigationsLeaveNothingBehind) {
    const auto web = makeWeb();
    const std::string addresses[] = {"about:blank", server_.address("/page"),
                                     server_.address("/v/a"), server_.address("/none")};
    const auto go = [&](int count) {
        for (int i = 0; i < count; ++i) {
            arrivals_.clear();
            web->Navigate(addresses[i % 4]);
            ASSERT_TRUE(arrives()) << i;
        }
        settle();
    };
    const auto systemHandles = [] {
        DWORD count = 0;
        GetProcessHandleCount(GetCurrentProcess(), &count);
        return static_cast<int>(count);
    };
    go(20);
    const int before = liveHandles();
    const int systemBefore = systemHandles();
    go(200);
    EXPECT_EQ(liveHandles(), before);
    EXPECT_LE(systemHandles(), systemBefore + 4);
}

TEST_F(WebBrowserTest, ThePanelTellsTypeAndSize) {
    if (systemHasHtmlEngine()) GTEST_SKIP() << "pages are rendered here";
    const auto web = makeWeb();
    const PreviewContent rows[] = {
        {Kind::NotRendered, server_.address("/page"), {"text/html", 12345}},
        {Kind::Unviewable, server_.address(playerPath), {"application/x-shockwave-flash", 7}}};
    for (const PreviewContent& row : rows) {
        web->Navigate(row.kind == Kind::Unviewable ? server_.address("/v/a") : row.address);
        EXPECT_TRUE(pumpUntil([&] { return web->content() == row; })) << row.address;
    }
}

TEST(PreviewPanelTest, ALongAddressLeavesRoomForTypeAndSize) {
    constexpr int width = 220;
    constexpr int height = 150;
    const WindowDc screen(nullptr);
    const OwnedMemoryDc dc(CreateCompatibleDC(screen.get()));
    const OwnedBitmap bitmap(CreateCompatibleBitmap(screen.get(), width, height));
    const Selected selected(dc.get(), bitmap.get());
    const PreviewPanel panel;
    const std::string address = "http://h/" + std::string(100'000, 'W');
    // The last rows above the note hold the size, whatever comes before.
    const auto sizeInk = [&](std::uint64_t size) {
        panel.paint(dc.get(), {0, 0, width, height}, {Kind::NotRendered, address, {"a/b", size}});
        int ink = 0;
        for (int y = height / 2; y < height; ++y)
            for (int x = 0; x < width; ++x)
                ink += GetPixel(dc.get(), x, y) != GetSysColor(COLOR_WINDOW);
        return ink;
    };
    EXPECT_GT(sizeInk(123456789), sizeInk(1));
    // No room at all is no reason to fail.
    for (const int side : {0, 1, 20})
        panel.paint(dc.get(), {0, 0, side, side}, {Kind::Unviewable, "http://h/", {}});
}

// Runs in a process of its own in which the system's control does not load.
TEST(WebBrowserMissingTest, NavigationsFailAndNothingElse) {
    if (!std::getenv("VELVOX_TEST_WITHOUT_BROWSER")) GTEST_SKIP() << "the control is there";
    const Frame frame;
    WebBrowserWindow web(frame.handle(), RECT{0, 0, 100, 100}, 1);
    web.DocumentComplete = [] { ADD_FAILURE() << "an arrival without a control"; };
    web.Navigate("about:blank");
    settle();
    for (int i = 0; i < 2; ++i) {
        EXPECT_THROW(web.Navigate("http://127.0.0.1/"), RuntimeFailure);
        settle(20);
    }
    EXPECT_EQ(web.LocationURL(), "");
    EXPECT_EQ(web.content().kind, Kind::Unreachable);
    EXPECT_NO_THROW(web.Navigate("about:blank")) << "the Download button begins with it";
    EXPECT_EQ(web.content().kind, Kind::Blank);
    settle();
}

}  // namespace
}  // namespace velvox
