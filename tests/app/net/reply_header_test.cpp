#include "app/net/reply_header.h"

#include <gtest/gtest.h>

namespace velvox {
namespace {

TEST(ReplyHeaderTest, ReadsTheFieldsOfAnyHeader) {
    const std::pair<const char*, ReplyHeader> rows[] = {
        {"HTTP/1.1 200 OK\r\nContent-Type: text/html; charset=utf-8\r\nContent-Length: 12\r\n\r\n",
         {200, "", {"text/html", 12}}},
        {"HTTP/1.0 302\nLOCATION: /a b \nLocation: /c\nX-Location: /d", {302, "/a b", {}}},
        {"content-length:7\ncontent-TYPE:\tvideo/mp4 ", {0, "", {"video/mp4", 7}}},
        {"HTTP/2 404 Not: Found\r\nContent-Length: 12x\r\nContent-Type:\r\n", {404, "", {}}},
        {"HTTP/1.1 2OO\nContent-Length: 99999999999999999999999\r\n", {}},
        {"X-Content-Length: 5\r\nContent-Length\r\n: 4\r\nContent-Length : 3\r\n", {}},
        {"HTTP/1.1 200\nContent-Length: 5\nTransfer-Encoding: chunked", {200, "", {}}},
        {"", {}},
    };
    for (const auto& [header, reply] : rows) EXPECT_EQ(parseReplyHeader(header), reply) << header;
}

}  // namespace
}  // namespace velvox
