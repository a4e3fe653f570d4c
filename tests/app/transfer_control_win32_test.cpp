#include <gtest/gtest.h>

#include "tests/support/local_server_win32.h"
// winsock2.h has to come before windows.h.
#include "app/transfer_control_win32.h"
#include "base/runtime_failure.h"

namespace velvox {
namespace {

using namespace std::string_literals;
using std::chrono::milliseconds;

std::string failureOf(TransferControl& transfer, const std::string& address) {
    try {
        transfer.OpenURL(address);
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.fault(), Fault::Transfer) << failure.what();
        return failure.what();
    }
    ADD_FAILURE() << address << " came";
    return "no failure";
}

TEST(TransferControlTest, RequestsExactlyWhatIsAskedAndNothingMore) {
    const LocalServer server([](const Connection& to, const std::string&) {
        to.write(LocalServer::reply("body", "404 Not Found", "Set-Cookie: a=b\r\n"));
    });
    WinHttpTransfer transfer;
    const std::string target = "/a%20b//c\\d?x=[1]&y={\"z\"}|^`%5b";
    EXPECT_EQ(transfer.OpenURL(server.address(target)), "body");
    transfer.OpenURL(server.address("/ \xC3\xA9#fragment"));
    const auto requests = server.requests();
    ASSERT_EQ(requests.size(), 2U);
    EXPECT_TRUE(requests[0].starts_with("GET " + target + " HTTP/1.1\r\n")) << requests[0];
    EXPECT_TRUE(requests[1].starts_with("GET /%20%C3%A9 HTTP/1.1\r\n")) << requests[1];
    for (const char* unneeded : {"Cookie:", "User-Agent:", "Referer:", "Cache-Control:"})
        EXPECT_EQ(requests[1].find(unneeded), std::string::npos) << requests[1];
}

TEST(TransferControlTest, KeepsEveryByteOfTheBody) {
    std::string every;
    for (int i = 0; i < 256; ++i) every.push_back(static_cast<char>(i));
    std::string large;
    while (large.size() < (20U << 20)) large += every;
    const LocalServer server([&](const Connection& to, const std::string& request) {
        if (request.starts_with("GET /large"))
            to.write(LocalServer::reply(large));
        else if (request.starts_with("GET /unsized"))
            to.write("HTTP/1.0 200 OK\r\n\r\n" + every);
        else
            to.write(LocalServer::reply(""));
    });
    WinHttpTransfer transfer;
    EXPECT_EQ(transfer.OpenURL(server.address("/empty")), "");
    EXPECT_EQ(transfer.OpenURL(server.address("/unsized")), every);
    EXPECT_TRUE(transfer.OpenURL(server.address("/large")) == large);
}

TEST(TransferControlTest, FollowsRedirectsButNotForEver) {
    const LocalServer server([](const Connection& to, const std::string& request) {
        const std::string path = request.substr(5, 4);
        if (path == "end ")
            to.write(LocalServer::reply("arrived"));
        else
            to.write(
                LocalServer::reply("", path == "loop" ? "302 Found" : path + "Moved",
                                   path == "loop" ? "Location: /loop\r\n" : "Location: /end\r\n"));
    });
    WinHttpTransfer transfer;
    for (const char* status : {"/301", "/302", "/303", "/307", "/308"})
        EXPECT_EQ(transfer.OpenURL(server.address(status)), "arrived") << status;
    EXPECT_EQ(failureOf(transfer, server.address("/loop")), "The page redirects too often");
}

// The deadline holds for the whole transfer, at whichever point the server goes silent or slow.
TEST(TransferControlTest, EndsAtItsDeadline) {
    const LocalServer server([](const Connection& to, const std::string& request) {
        if (request.starts_with("GET /silent")) {
            to.wait(20'000);
        } else if (request.starts_with("GET /header")) {
            for (const char c : "HTTP/1.1 200 OK\r\nContent-Length: 1\r\n\r\nx"s)
                if (!to.write({&c, 1}) || !to.wait(300)) return;
        } else {
            to.write("HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\n");
            while (to.write("x") && to.wait(100)) {
            }
        }
    });
    WinHttpTransfer transfer({.time = milliseconds(700)});
    for (const char* path : {"/silent", "/header", "/body"}) {
        SCOPED_TRACE(path);
        const auto start = std::chrono::steady_clock::now();
        EXPECT_EQ(failureOf(transfer, server.address(path)), "The server did not answer in time");
        const auto took = std::chrono::steady_clock::now() - start;
        EXPECT_GE(took, milliseconds(690));
        EXPECT_LT(took, milliseconds(1500));
    }
}

TEST(TransferControlTest, FailsPlainlyAndGoesOnAfterwards) {
    const LocalServer server([](const Connection& to, const std::string& request) {
        if (request.starts_with("GET /cut"))
            to.write("HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\nhalf");
        else if (request.starts_with("GET /big"))
            to.write(LocalServer::reply(std::string(5000, 'x')));
        else if (!request.starts_with("GET /drop"))
            to.write(LocalServer::reply("good"));
    });
    WinHttpTransfer transfer({.time = milliseconds(5000), .bytes = 4000});
    for (const std::string& address :
         {server.address("/cut"), server.address("/drop"), "http://127.0.0.1:1/"s,
          "http://no.such.host.invalid/"s, "file:///c:/x"s, "http://h\0st/"s})
        failureOf(transfer, address);
    EXPECT_EQ(failureOf(transfer, server.address("/big")), "The page is too large");
    EXPECT_EQ(transfer.OpenURL(server.address("/" + std::string(100'000, 'a'))), "good");
}

TEST(TransferControlTest, WindowMessagesAreSeenWhileWaiting) {
    const LocalServer server([](const Connection& to, const std::string&) {
        to.wait(300);
        to.write(LocalServer::reply("late"));
    });
    int seen = 0;
    WinHttpTransfer transfer({}, [&] {
        MSG message;
        while (PeekMessageW(&message, nullptr, WM_APP, WM_APP, PM_REMOVE)) ++seen;
    });
    PostThreadMessageW(GetCurrentThreadId(), WM_APP, 0, 0);
    EXPECT_EQ(transfer.OpenURL(server.address()), "late");
    EXPECT_EQ(seen, 1);
}

TEST(TransferControlTest, LeavesNoHandleBehind) {
    const LocalServer server([](const Connection& to, const std::string& request) {
        if (request.starts_with("GET /silent")) to.wait(450);
        to.write(LocalServer::reply("x"));
    });
    WinHttpTransfer transfer({.time = milliseconds(300)});
    transfer.OpenURL(server.address());
    const int before = liveHandles();
    for (int i = 0; i < 5; ++i) {
        transfer.OpenURL(server.address());
        failureOf(transfer, server.address("/silent"));
    }
    // The closing notices of what was given up come later, on other threads; Wine sends them only
    // when the server has closed too.
    for (int i = 0; i < 100 && liveHandles() > before; ++i) Sleep(20);
    EXPECT_EQ(liveHandles(), before);
}

}  // namespace
}  // namespace velvox
