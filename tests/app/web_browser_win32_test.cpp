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

using Clock = std::chrono::steady_clock;
using Kind = PreviewContent::Kind;

constexpr const char* playerPath = "/p.swf?video_id=a%20%5B%5D%3A[x]&t=%41";

std::string page(const std::string& status, const std::string& type, const std::string& body,
                 const std::string& moreHeader = {}) {
    return LocalServer::reply(body, status, "Content-Type: " + type + "\r\n" + moreHeader);
}

std::string redirect(const std::string& status, const std::string& location) {
    return LocalServer::reply("", status, "Location: " + location + "\r\n");
}

void answer(const Connection& to, const std::string& request) {
    const std::map<std::string, std::string> answers = {
        {"/page", page("200 OK", "text/html; charset=utf-8", std::string(12345, 'x'))},
        {playerPath, page("200 OK", "application/x-shockwave-flash", "FWS....")},
        {"/v/a", redirect("303 See Other", playerPath)},
        {"/f", redirect("302 Found", "/f/2")},
        {"/f/2", redirect("301 Moved", "/f/3?mediaURL=x%20%5By%5D.flv&q=[1]")},
        {"/f/3?mediaURL=x%20%5By%5D.flv&q=[1]", page("200 OK", "text/html", "<p>")},
        {"/file", redirect("302 Found", "file:///C:/windows/win.ini")},
        {"/login",
         page("401 Unauthorized", "text/html", "no", "WWW-Authenticate: Basic realm=\"r\"\r\n")},
        {"/drop", ""},
    };
    const auto from = request.find(' ') + 1;
    const std::string path = request.substr(from, request.find(' ', from) - from);
    if (path == "/silent") {
        to.wait(60'000);
        return;
    }
    const auto found = answers.find(path);
    const std::string reply = found == answers.end()
                                  ? page("404 Not Found", "text/html", "<p>Not here</p>")
                                  : found->second;
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

    LocalServer server_{answer};
    Frame frame_;
    std::vector<std::string> arrivals_;
};

using Addresses = std::vector<std::string>;

TEST_F(WebBrowserTest, ArrivesAtTheFinalAddressByteForByte) {
    const auto web = makeWeb();
    const std::pair<std::string, std::string> rows[] = {
        {"about:blank", "about:blank"},
        {server_.address("/page"), server_.address("/page")},
        {server_.address("/v/a"), server_.address(playerPath)},
        {server_.address("/f"), server_.address("/f/3?mediaURL=x%20%5By%5D.flv&q=[1]")},
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
    using namespace std::string_literals;
    for (const std::string& address :
         {"http://127.0.0.1:1/"s, "http://no-such-host.invalid/"s, server_.address("/drop"), ""s,
          "\0x"s, "\xff\xfe\x01"s, "http://"s, "http://\0"s, "javascript:1"s,
          "file:///C:/windows/win.ini"s, "C:\\windows\\win.ini"s, "no-scheme"s}) {
        SCOPED_TRACE(address);
        web->Navigate(address);
        EXPECT_TRUE(pumpUntil([&] { return web->content().kind == Kind::Unreachable; }));
        settle();
        EXPECT_EQ(arrivals_, Addresses{});
        EXPECT_EQ(web->content().address, address);
    }
    web->Navigate("about:blank");
    EXPECT_TRUE(arrives());
}

TEST_F(WebBrowserTest, ARedirectToAFileIsNotFollowed) {
    const auto web = makeWeb();
    web->Navigate(server_.address("/file"));
    pumpUntil([&] { return !arrivals_.empty() || web->content().kind == Kind::Unreachable; });
    settle();
    EXPECT_EQ(web->LocationURL(), server_.address("/file"));
}

TEST_F(WebBrowserTest, AServerThatNeverAnswersIsLeftAfterTheTimeout) {
    constexpr UINT timeout = 300;
    const auto web = makeWeb(timeout);
    web->Navigate("about:blank");
    ASSERT_TRUE(arrives());
    const auto start = Clock::now();
    web->Navigate(server_.address("/silent"));
    ASSERT_TRUE(pumpUntil([&] { return web->content().kind == Kind::Unreachable; }));
    const auto waited = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start);
    EXPECT_GE(waited.count(), timeout - 20);
    EXPECT_LT(waited.count(), timeout + 500);
    EXPECT_EQ(arrivals_.size(), 1U);

    web->Navigate(server_.address("/page"));
    ASSERT_TRUE(arrives(2));
    settle(timeout + 100);
    EXPECT_EQ(web->content().kind, Kind::NotRendered) << "the timer outlived its navigation";
}

TEST_F(WebBrowserTest, ANewNavigationSupersedesTheOneUnderWay) {
    const auto web = makeWeb();
    web->Navigate("about:blank");
    web->Navigate(server_.address("/silent"));
    settle();
    web->Navigate(server_.address("/page"));
    web->Navigate(server_.address("/v/a"));
    ASSERT_TRUE(arrives());
    settle();
    EXPECT_EQ(arrivals_, Addresses{server_.address(playerPath)});

    // The arrival is already on its way through the message queue.
    arrivals_.clear();
    web->Navigate(server_.address("/page"));
    ASSERT_TRUE(pumpUntil([&] { return web->content().kind == Kind::NotRendered; }));
    ASSERT_TRUE(arrivals_.empty());
    web->Navigate("about:blank");
    ASSERT_TRUE(arrives());
    settle();
    EXPECT_EQ(arrivals_, Addresses{"about:blank"});
}

// A control that is asked again while it is busy mixes the two documents up, at some moments only.
TEST_F(WebBrowserTest, ASupersededNavigationNeverSpeaksForTheNewOne) {
    const auto web = makeWeb();
    web->Navigate("about:blank");
    ASSERT_TRUE(arrives());
    for (int i = 0; i < 24; ++i) {
        const int messages = i % 12;
        arrivals_.clear();
        web->Navigate(i % 3 == 0 ? "about:blank" : server_.address("/page"));
        for (int j = 0; j < messages; ++j) pumpOne();
        const std::size_t before = arrivals_.size();
        web->Navigate(server_.address("/v/a"));
        ASSERT_TRUE(arrives(before + 1)) << "after " << messages << " messages";
        settle(20);
        ASSERT_EQ(arrivals_.size(), before + 1) << "after " << messages << " messages";
        ASSERT_EQ(arrivals_.back(), server_.address(playerPath)) << "after " << messages;
    }
}

TEST_F(WebBrowserTest, TheHandlerMayThrowNavigateOrDestroyTheWindow) {
    auto web = makeWeb();
    std::string reported;
    setFailureReporter([&](std::string_view text) { reported += text; });
    web->DocumentComplete = [] { throw std::runtime_error("the handler failed"); };
    web->Navigate("about:blank");
    EXPECT_TRUE(pumpUntil([&] { return !reported.empty(); }));
    EXPECT_EQ(reported, "the handler failed");
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

TEST_F(WebBrowserTest, AWindowDestroyedByItsParentRefusesToNavigate) {
    auto parent = std::make_unique<Frame>();
    WebBrowserWindow web(parent->handle(), RECT{0, 0, 50, 50}, 1);
    web.Navigate("about:blank");
    settle();
    parent.reset();
    EXPECT_EQ(web.handle(), nullptr);
    EXPECT_THROW(web.Navigate("about:blank"), RuntimeFailure);
    EXPECT_EQ(web.LocationURL(), "");
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
    const auto web = makeWeb();
    web->Navigate("about:blank");
    ASSERT_TRUE(arrives());
    EXPECT_EQ(web->content(), PreviewContent{});
    if (systemHasHtmlEngine()) GTEST_SKIP() << "pages are rendered here";

    web->Navigate(server_.address("/page"));
    EXPECT_TRUE(pumpUntil([&] { return web->content().facts.size.has_value(); }));
    EXPECT_EQ(web->content(),
              (PreviewContent{Kind::NotRendered, server_.address("/page"), {"text/html", 12345}}));
    web->Navigate(server_.address("/v/a"));
    EXPECT_TRUE(pumpUntil([&] { return web->content().kind == Kind::Unviewable; }));
    EXPECT_TRUE(pumpUntil([&] { return web->content().facts.size.has_value(); }));
    EXPECT_EQ(web->content(), (PreviewContent{Kind::Unviewable,
                                              server_.address(playerPath),
                                              {"application/x-shockwave-flash", 7}}));
}

// Pixels of a row range that are not background.
int inkOfRows(HDC dc, int width, int from, int to) {
    int ink = 0;
    for (int y = from; y < to; ++y)
        for (int x = 0; x < width; ++x) ink += GetPixel(dc, x, y) != GetSysColor(COLOR_WINDOW);
    return ink;
}

TEST(PreviewPanelTest, ALongAddressLeavesRoomForTypeAndSize) {
    constexpr int width = 220;
    constexpr int height = 150;
    const WindowDc screen(nullptr);
    const OwnedMemoryDc dc(CreateCompatibleDC(screen.get()));
    const OwnedBitmap bitmap(CreateCompatibleBitmap(screen.get(), width, height));
    const Selected selected(dc.get(), bitmap.get());
    const PreviewPanel panel;
    // The last rows above the note hold the size, whatever comes before.
    const auto sizeInk = [&](const std::string& address, std::uint64_t size) {
        panel.paint(dc.get(), {0, 0, width, height}, {Kind::NotRendered, address, {"a/b", size}});
        return inkOfRows(dc.get(), width, height / 2, height);
    };
    for (const std::size_t length : {std::size_t{1000}, std::size_t{1'000'000}}) {
        const std::string address = "http://h/" + std::string(length, 'W');
        EXPECT_GT(sizeInk(address, 123456789), sizeInk(address, 1)) << length;
    }
    // No room at all is no reason to fail.
    for (const int side : {0, 1, 5, 20})
        panel.paint(dc.get(), {0, 0, side, side}, {Kind::Unviewable, "http://h/", {}});
}

// Runs in a process of its own in which the system's control does not load.
TEST(WebBrowserMissingTest, NavigationsFailAndNothingElse) {
    if (!std::getenv("VELVOX_TEST_WITHOUT_BROWSER")) GTEST_SKIP() << "the control is there";
    const Frame frame;
    WebBrowserWindow web(frame.handle(), RECT{0, 0, 100, 100}, 1);
    bool raised = false;
    web.DocumentComplete = [&] { raised = true; };
    EXPECT_NO_THROW(web.Navigate("about:blank"));
    settle();
    for (int i = 0; i < 2; ++i) {
        try {
            web.Navigate("http://127.0.0.1/");
            ADD_FAILURE() << "navigated without a control";
        } catch (const RuntimeFailure& failure) {
            EXPECT_EQ(failure.fault(), Fault::Platform);
        }
        settle(20);
    }
    EXPECT_FALSE(raised);
    EXPECT_FALSE(web.Offline());
    EXPECT_EQ(web.LocationURL(), "");
    EXPECT_EQ(web.content().kind, Kind::Unreachable);
    EXPECT_NO_THROW(web.Navigate("about:blank")) << "the Download button begins with it";
    EXPECT_EQ(web.content().kind, Kind::Blank);
    settle();
    EXPECT_FALSE(raised);
}

}  // namespace
}  // namespace velvox
