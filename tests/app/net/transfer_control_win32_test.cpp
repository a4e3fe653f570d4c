#include <gtest/gtest.h>

#include "tests/support/local_server_win32.h"
// winsock2.h must be included before windows.h.
#include "app/net/transfer_control_win32.h"

#include <psapi.h>

#include "base/runtime_failure.h"
#include "base/web_address.h"

namespace velvox {
namespace {

using std::chrono::milliseconds;

std::string everyByte() {
    std::string bytes;
    for (int i = 0; i < 256 * 256; ++i) bytes.push_back(static_cast<char>(i));
    return bytes;
}

const std::string chunk(16 << 10, 'x');

void writeEndlessly(const Connection& to) {
    while (to.write(chunk) && to.wait(0)) continue;
}

void answer(const Connection& to, const std::string& request) {
    const std::string path = request.substr(5, request.find(' ', 5) - 5);
    const std::string header = "HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\n";
    if (path == "silent") {
        to.wait(3000);
    } else if (path == "drip") {
        to.write(header);
        while (to.write("x") && to.wait(100)) continue;
    } else if (path == "cut") {
        to.write(header + "half");
    } else if (path == "more") {
        to.write("HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\ngood" + everyByte());
        to.wait(3000);
    } else if (path == "unsized") {
        to.write("HTTP/1.0 200 OK\r\n\r\n" + everyByte());
    } else if (path == "big") {
        to.write(LocalServer::reply(std::string(5000, 'x')));
    } else if (path == "endless") {
        to.write("HTTP/1.0 200 OK\r\n\r\n");
        writeEndlessly(to);
    } else if (path == "chunked") {
        to.write(
            "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\nContent-Length: 1000\r\n\r\n"
            "4\r\ngood\r\n0\r\n\r\n");
    } else if (path == "301") {
        to.write("HTTP/1.1 301 Moved\r\nLocation: /unsized\r\n\r\n");
        writeEndlessly(to);
    } else if (path.starts_with("30")) {
        to.write(LocalServer::reply("", path + " Moved", "Location: /unsized\r\n"));
    } else {
        to.write(LocalServer::reply("good"));
    }
}

std::string failureOf(TransferControl& transfer, const std::string& address) {
    try {
        transfer.OpenURL(address);
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.fault(), Fault::Transfer) << failure.what();
        return failure.what();
    }
    ADD_FAILURE() << address << " came";
    return {};
}

TEST(TransferControlTest, RequestsExactlyWhatIsAskedAndNothingMore) {
    std::string everyHighByte;
    for (int i = 0x80; i < 0x100; ++i) everyHighByte.push_back(static_cast<char>(i));
    std::vector<std::string> requests;
    const LocalServer server([&](const Connection& to, const std::string& request) {
        requests.push_back(request);
        if (request.starts_with("GET /moved"))
            to.write(LocalServer::reply("", "302 Moved", "Location: /" + everyHighByte + "\r\n"));
        to.write(LocalServer::reply("body", "404 Not Found", "Set-Cookie: a=b\r\n"));
    });
    InternetSession session;
    WinHttpTransfer transfer(session);
    const std::string target = "/a%20b//c\\d?x=[1]&y={\"z\"}|^`%5b";
    EXPECT_EQ(transfer.OpenURL(server.address(target)), "body");
    transfer.OpenURL(server.address("/ \xC3\xA9#fragment"));
    transfer.OpenURL(server.address("/moved"));
    ASSERT_EQ(requests.size(), 4U);
    EXPECT_TRUE(requests[0].starts_with("GET " + target + " HTTP/1.1\r\n")) << requests[0];
    EXPECT_TRUE(requests[1].starts_with("GET /%20%C3%A9 HTTP/1.1\r\n")) << requests[1];
    EXPECT_TRUE(
        requests[3].starts_with("GET /" + percentEncode(everyHighByte, {}) + " HTTP/1.1\r\n"))
        << requests[3];
    for (const char* unneeded : {"Cookie:", "User-Agent:", "Referer:", "Cache-Control:"})
        EXPECT_EQ(requests[1].find(unneeded), std::string::npos) << requests[1];
}

TEST(TransferControlTest, KeepsEveryByteOfTheBodyBehindRedirects) {
    const LocalServer server(answer);
    InternetSession session;
    WinHttpTransfer transfer(session);
    EXPECT_EQ(transfer.OpenURL(server.address("/300")), "");
    for (const char* path : {"/unsized", "/301", "/303", "/308"})
        EXPECT_TRUE(transfer.OpenURL(server.address(path)) == everyByte()) << path;
    EXPECT_EQ(transfer.OpenURL(server.address("/chunked")), "good");
    EXPECT_EQ(transfer.OpenURL(server.address("/more")), "good");
}

// The deadline holds for the whole transfer, whether the server is silent or slow.
TEST(TransferControlTest, SeesMessagesUntilItsDeadlineAndLeavesNoHandleBehind) {
    const LocalServer server(answer);
    int seen = 0;
    InternetSession session;
    WinHttpTransfer transfer(session, {.time = milliseconds(1500)}, [&](const auto&) {
        MSG message;
        while (PeekMessageW(&message, nullptr, WM_APP, WM_APP, PM_REMOVE)) ++seen;
    });
    TransferProgress last;
    transfer.onProgress = [&](const TransferProgress& now) { last = now; };
    transfer.OpenURL(server.address());
    const int before = liveHandles();
    for (const char* path : {"/silent", "/drip"}) {
        SCOPED_TRACE(path);
        PostThreadMessageW(GetCurrentThreadId(), WM_APP, 0, 0);
        const auto start = std::chrono::steady_clock::now();
        EXPECT_EQ(failureOf(transfer, server.address(path)), "The server did not answer in time");
        const auto took = std::chrono::steady_clock::now() - start;
        EXPECT_GE(took, milliseconds(1490));
        EXPECT_LT(took, milliseconds(10'000));
        EXPECT_EQ(last.limit, milliseconds(1500));
        EXPECT_GE(last.elapsed, milliseconds(1000));
        EXPECT_EQ(last.bytes > 0, path == std::string_view("/drip"));
        EXPECT_EQ(transfer.OpenURL(server.address()), "good");
    }
    EXPECT_EQ(seen, 2);
    // The close notifications of transfers that were given up arrive later, on other threads. Wine
    // sends them only after the server has closed the connection too.
    for (int i = 0; i < 1000 && liveHandles() > before; ++i) Sleep(20);
    EXPECT_EQ(liveHandles(), before);
}

// The callback simulates a loop of the system, such as a menu's. The page arrives inside this loop.
// `isOver` returns true once the page has arrived, and at the deadline.
TEST(TransferControlTest, IsAdvancedFromInsideAnotherLoop) {
    const LocalServer server(answer);
    InternetSession session;
    WinHttpTransfer transfer(session, {.time = milliseconds(700)}, [](const auto& isOver) {
        while (!isOver()) Sleep(10);
    });
    const auto startLoop = [] { PostThreadMessageW(GetCurrentThreadId(), WM_APP, 0, 0); };
    startLoop();
    EXPECT_EQ(transfer.OpenURL(server.address("/unsized")), everyByte());
    startLoop();
    EXPECT_EQ(failureOf(transfer, server.address("/cut")), "The connection was cut");
    startLoop();
    EXPECT_EQ(failureOf(transfer, server.address("/silent")), "The server did not answer in time");
}

// A body that arrives without a pause must neither fill the memory nor block the messages.
TEST(TransferControlTest, AnEndlessBodyIsGivenUpInTime) {
    const LocalServer server(answer);
    const auto privateBytes = [] {
        PROCESS_MEMORY_COUNTERS counters{};
        K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
        return counters.PagefileUsage;
    };
    SIZE_T most = 0;
    InternetSession session;
    WinHttpTransfer transfer(session, {},
                             [&](const auto&) { most = std::max(most, privateBytes()); });
    const SIZE_T before = privateBytes();
    EXPECT_EQ(failureOf(transfer, server.address("/endless")), "The page is too large");
    EXPECT_GT(most, before) << "no message could be handled meanwhile";
    EXPECT_LT(most - before, 110U << 20);
}

TEST(TransferControlTest, FetchesAnotherPageAfterOneThatIsTooLarge) {
    const LocalServer server(answer);
    InternetSession session;
    WinHttpTransfer transfer(session, {.time = milliseconds(30'000), .bytes = 4000});
    EXPECT_EQ(failureOf(transfer, server.address("/big")), "The page is too large");
    EXPECT_EQ(transfer.OpenURL(server.address("/" + std::string(60'000, 'a'))), "good");
}

}  // namespace
}  // namespace velvox
