#include "tests/e2e/hostile_replies.h"

namespace velvox::e2e {
namespace {

using Handler = Proxy::Handler;

constexpr std::size_t mebibyte = 1U << 20;
constexpr std::size_t endless = static_cast<std::size_t>(-1);
constexpr Milliseconds slowly{500};

const std::string ok = "HTTP/1.1 200 OK\r\n";
const std::string chunked = ok + "Transfer-Encoding: chunked\r\n\r\n";
const std::string link = hostileLink;
const std::string good = "fullPreviewHashPath=\"" + link + "\" \r\n";
const std::string playerAddress = "http://www.metacafe.com/f/p.swf?mediaURL=" + link;
const std::string allBytes = [] {
    std::string all;
    for (int i = 0; i < 256; ++i) all += static_cast<char>(i);
    return all;
}();

std::string repeated(const std::string& piece, std::size_t times) {
    std::string all;
    all.reserve(piece.size() * times);
    for (std::size_t i = 0; i < times; ++i) all += piece;
    return all;
}

std::string withLength(const std::string& length, const std::string& body) {
    return ok + "Content-Length: " + length + "\r\n\r\n" + body;
}

std::string chunk(const std::string& bytes) {
    char size[20];
    std::snprintf(size, sizeof size, "%zx\r\n", bytes.size());
    return size + bytes + "\r\n";
}

Handler bytes(std::string text) {
    return [text = std::move(text)](const Exchange& to) { to.write(text); };
}

// Sends a text and keeps the connection open.
Handler held(std::string text) {
    return [text = std::move(text)](const Exchange& to) {
        to.write(text);
        to.staySilent();
    };
}

Handler cut(std::string text) {
    return [text = std::move(text)](const Exchange& to) {
        to.write(text);
        to.reset();
    };
}

Handler dripped(std::string head, std::string text) {
    return [head = std::move(head), text = std::move(text)](const Exchange& to) {
        to.write(head);
        to.drip(text, slowly);
        to.staySilent();
    };
}

// Sends a head and then repeats a piece up to `size` bytes.
Handler flood(std::string head, const std::string& piece, std::size_t size = endless) {
    const std::string block = repeated(piece, 65'536 / piece.size() + 1);
    return [head = std::move(head), block, size](const Exchange& to) {
        to.write(head);
        for (std::size_t sent = 0; sent < size; sent += block.size())
            if (!to.write(block.substr(0, size - sent))) return;
    };
}

std::string redirectTo(const std::string& location, const std::string& rest = "\r\n") {
    return "HTTP/1.1 302 Found\r\nLocation: " + location + "\r\n" + rest;
}

// Sends `count` redirects, each to the next number, and then a good page.
Handler redirects(int count) {
    return [count](const Exchange& to) {
        const std::string address = to.address();
        const auto at = address.find("/step/");
        const int step = at == address.npos ? 0 : std::stoi(address.substr(at + 6));
        if (step == count)
            to.reply(good);
        else
            to.write(redirectTo("/step/" + std::to_string(step + 1)));
    };
}

// Sends a redirect, and then a good page or player.
Handler redirectedOnce(const Handler& first) {
    return [first](const Exchange& to) {
        if (to.asksFor("/step/") || to.asksFor("/f/"))
            to.reply(good);
        else
            first(to);
    };
}

std::string wide(const std::string& text) {
    std::string utf16 = "\xFF\xFE";
    for (const char c : text) (utf16 += c) += '\0';
    return utf16;
}

// 300 MB of zeros, compressed to 1.3 MB.
std::string bomb() {
    return outputOf({"sh", "-c", "head -c 300000000 /dev/zero | gzip -1"});
}

using enum Outcome;

using Replies = std::vector<HostileReply>;

Replies slowReplies() {
    return {
        {"silence", Failure, held(""), quick | hasty},
        {"header a byte at a time", Failure, dripped("", ok + repeated("X: y\r\n", 100)),
         quick | hasty},
        {"body a byte at a time", Failure, dripped(withLength("5000", ""), good + good),
         quick | hasty},
        {"chunk size a digit at a time", Failure, dripped(chunked, repeated("0", 100)), hasty},
    };
}

Replies hugeReplies() {
    return {
        {"header line without end", Failure, flood(ok + "X: ", "a")},
        // Windows stops at 64 KB of header. Wine keeps all lines and continues to read after the
        // request is closed.
        {"header lines without end", Failure, flood(ok, "X: aaaaaaaaaaaaaaaa\r\n"), unbounded},
        {"100,000 headers", LinkOrFailure,
         bytes(ok + repeated("X: y\r\n", 100'000) + "\r\n" + good), quick},
        {"status line of 1 MB", LinkOrFailure,
         bytes("HTTP/1.1 200 " + std::string(mebibyte, 'K') + "\r\n\r\n" + good), quick},
        {"100 Continue without end", Failure, flood("", "HTTP/1.1 100 Continue\r\n\r\n")},
        {"body without end", Failure, flood(ok + "\r\n" + good, "x"), quick},
        {"chunks without end", Failure, flood(chunked, chunk(std::string(1000, 'x')))},
        {"chunks of one byte without end", Failure, flood(chunked, chunk("x"))},
        {"chunk size without end", Failure, flood(chunked, "0")},
        {"chunk extension without end", Failure, flood(chunked + "1;", "a")},
        {"trailer without end", LinkOrFailure,
         flood(chunked + chunk(good) + "0\r\n", "X: aaaaaaaaaaaaaaaa\r\n")},
        {"500 MB announced and sent", Failure,
         flood(withLength("524288000", good), "x", 500 * mebibyte), quick},
        {"500 MB announced, a little sent", Failure, held(withLength("524288000", good)), quick},
        {"50 MB", Link, flood(withLength("52428800", good), "x", 50 * mebibyte - good.size())},
        {"gzip bomb", Failure,
         [](const Exchange& to) {
             static const std::string packed = bomb();
             to.reply(packed, "200 OK", "Content-Encoding: gzip\r\n");
         }},
    };
}

Replies cutReplies() {
    return {
        {"closed at once", Failure, bytes(""), quick},
        {"reset at once", Failure, cut(""), quick},
        {"cut in the status line", Failure, bytes("HTTP/1.1 200"), quick},
        {"cut in the header", Failure, bytes("HTTP/1.1 200 OK\r\nContent-Le"), quick},
        {"cut in the body", Failure, bytes(withLength("1000", good)), quick},
        {"reset in the body", Failure, cut(withLength("1000", good))},
        // Wine takes the end of the connection as the end of the chunks.
        {"cut in a chunk", LinkOrFailure, bytes(chunked + "1000\r\n" + good), quick},
        {"cut before the last chunk", LinkOrFailure, bytes(chunked + chunk(good)), quick},
    };
}

Replies falseLengths() {
    return {
        {"length of -1", LinkOrFailure, bytes(withLength("-1", good)), quick},
        {"length of no number", LinkOrFailure, bytes(withLength("many", good))},
        {"length of 20 digits", LinkOrFailure, bytes(withLength("99999999999999999999", good))},
        {"length of 4 GB and a little", Failure,
         bytes(withLength(std::to_string(0x1'0000'0000 + good.size()), good)), quick},
        {"length too short", Failure, bytes(withLength("5", good)), quick},
        {"two lengths", LinkOrFailure, bytes(withLength("5\r\nContent-Length: 1000", good))},
        {"length beside chunks", Link,
         bytes(ok + "Content-Length: 5\r\nTransfer-Encoding: chunked\r\n\r\n" + chunk(good) +
               "0\r\n\r\n"),
         quick},
        {"more after the body", Link,
         held(withLength(std::to_string(good.size()), good + repeated("x", 100'000))), quick},
    };
}

Replies brokenChunks() {
    return {
        {"chunk size of no number", Failure, bytes(chunked + "zz\r\n" + good), quick},
        {"chunk size of 17 digits", Failure, bytes(chunked + "10000000000000001\r\n" + good)},
        {"chunk of 4 GB", Failure, bytes(chunked + "ffffffff\r\n" + good), quick},
        {"chunk without its end", LinkOrFailure, bytes(chunked + "3\r\n" + good + "0\r\n\r\n")},
    };
}

Replies brokenHeaders() {
    return {
        {"no HTTP at all", Failure, bytes("220 ready\r\n\r\n"), quick},
        {"random bytes", Failure, bytes(allBytes + allBytes)},
        {"HTTP/9.9, status 999", LinkOrFailure, bytes("HTTP/9.9 999 \r\n\r\n" + good)},
        {"no content with a body", LinkOrFailure, bytes("HTTP/1.1 204 No\r\n\r\n" + good), quick},
        {"a password wanted", LinkOrFailure,
         bytes(
             "HTTP/1.1 401 No\r\nWWW-Authenticate: Basic realm=\"\"\r\nContent-Length: 0\r\n\r\n")},
        {"a proxy password wanted", LinkOrFailure,
         bytes("HTTP/1.1 407 No\r\nProxy-Authenticate: NTLM\r\nContent-Length: 0\r\n\r\n"), quick},
    };
}

Replies badRedirects() {
    return {
        {"redirect to itself", Failure, bytes(redirectTo("http://www.veoh.com/videos/v1?")), quick},
        {"redirects in a circle", Failure, redirects(1'000'000)},
        {"11 redirects", Failure, redirects(11), quick},
        {"10 redirects", Link, redirects(10), quick},
        {"redirect without an address", Failure, bytes("HTTP/1.1 302 Found\r\n\r\n" + good), quick},
        {"redirect to an empty address", Failure, bytes(redirectTo("")), quick},
        {"redirect to a file", Failure, bytes(redirectTo("file:///c:/windows/win.ini")), quick},
        {"redirect to ftp", Failure, bytes(redirectTo("ftp://127.0.0.1/"))},
        {"redirect to a script", Failure, bytes(redirectTo("javascript:alert(1)")), quick},
        {"redirect to another port", Failure, bytes(redirectTo("http://127.0.0.1:1/"))},
        {"redirect to an address of 1 MB", Failure,
         redirectedOnce(bytes(redirectTo("http://a/" + std::string(mebibyte, 'a'))))},
        {"redirect with a body without end", Link,
         redirectedOnce(flood(redirectTo("/step/1"), "x")), quick},
        {"redirect that announces 500 MB", Link,
         redirectedOnce(held(redirectTo("/step/1", "Content-Length: 524288000\r\n\r\n"))), quick},
    };
}

Replies oddBodies() {
    return {
        {"every byte, NULs too", Link, bytes(ok + "\r\n" + allBytes + good + allBytes), quick},
        {"a million NULs", Link, bytes(ok + "\r\n" + std::string(mebibyte, '\0') + good), quick},
        {"UTF-16", Failure, bytes(ok + "\r\n" + wide(good)), quick},
        {"a million elements deep", Link, bytes(ok + "\r\n" + repeated("<div>", mebibyte) + good),
         quick},
        {"nothing in it", Failure, bytes(withLength("0", "")), quick},
    };
}

Replies navigations() {
    return {
        {"player: silence", Waiting, held(""), quick | hasty | player},
        {"player: closed at once", Waiting, bytes(""), quick | hasty | player},
        {"player: no HTTP at all", Waiting, bytes("220 ready\r\n\r\n"), hasty | player},
        {"player: header without end", Waiting, flood(ok + "X: ", "a"), hasty | player},
        {"player: redirects in a circle", Waiting, redirects(1'000'000), quick | hasty | player},
        {"player: redirect to a script", Waiting, bytes(redirectTo("javascript:alert(1)")),
         hasty | player},
        {"player: redirect to a file", Waiting, bytes(redirectTo("file:///c:/windows/win.ini")),
         hasty | player},
        {"player: redirect with a body without end", Link,
         redirectedOnce(flood(redirectTo(playerAddress), "x")), quick | hasty | player},
        {"player: body without end", Link,
         [](const Exchange& to) {
             if (to.asksFor("/f/"))
                 flood(ok + "\r\n", "x")(to);
             else
                 to.write(redirectTo(playerAddress));
         },
         quick | hasty | player},
        {"player: 500 MB announced and sent", Link,
         [](const Exchange& to) {
             if (to.asksFor("/f/"))
                 flood(withLength("524288000", ""), "x", 500 * mebibyte)(to);
             else
                 to.write(redirectTo(playerAddress));
         },
         hasty | player},
    };
}

}  // namespace

const std::vector<HostileReply>& hostileReplies() {
    static const Replies all = [] {
        Replies joined;
        for (const auto group : {slowReplies, hugeReplies, cutReplies, falseLengths, brokenChunks,
                                 brokenHeaders, badRedirects, oddBodies, navigations})
            for (HostileReply& reply : group()) joined.push_back(std::move(reply));
        return joined;
    }();
    return all;
}

}  // namespace velvox::e2e
