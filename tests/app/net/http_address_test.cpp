#include "app/net/http_address.h"

#include <gtest/gtest.h>

#include "base/runtime_failure.h"

namespace velvox {
namespace {

TEST(HttpAddressTest, TakesAddressesApart) {
    const std::pair<std::string, HttpAddress> rows[] = {
        {"http://www.a.com/x?y=1#part", {false, "www.a.com", 80, "/x?y=1", "#part"}},
        {"a.com", {false, "a.com", 80, "/"}},
        {"a.com?x/y", {false, "a.com", 80, "/?x/y"}},
        {"a.com:8080/x:y", {false, "a.com", 8080, "/x:y"}},
        {"http://a:/x", {false, "a", 80, "/x"}},
        {"http://[0::0:1]:8/x", {false, "[::1]", 8, "/x"}},
        {"hTTpS://A_b-c.Com", {true, "A_b-c.Com", 443, "/"}},
        {"http://a:00065535/", {false, "a", 65535, "/"}},
        {"http://h\xC3\xB6st/b\\c d%41//../\x01\xFF",
         {false, "h\xC3\xB6st", 80, "/b\\c d%41//../\x01\xFF"}},
        {"a/http://b/", {false, "a", 80, "/http://b/"}},
    };
    for (const auto& [address, expected] : rows)
        EXPECT_EQ(parseHttpAddress(address), expected) << address;
}

TEST(HttpAddressTest, RefusesWhatNoHostCanAnswer) {
    for (const char* address :
         {"", "http:", "http:/a.com", "?x", ":80", "C:\\x", "host:80x", "ftp://a.com/"})
        EXPECT_THROW(parseHttpAddress(address), RuntimeFailure) << address;
    for (const std::string host : {"", "a b", "a\\b", "u@a", "[::1", "a:0", "a:65536", "a:8x",
                                   "a:9999999999", "a%41", "a\x01"})
        EXPECT_THROW(parseHttpAddress("http://" + host + "/"), RuntimeFailure) << host;
    EXPECT_THROW(parseHttpAddress(std::string(256, 'a')), RuntimeFailure);
    EXPECT_EQ(parseHttpAddress("a/" + std::string(65'534, 'b')).target.size(), 65'535U);
    EXPECT_THROW(parseHttpAddress("a/" + std::string(65'535, 'b')), RuntimeFailure);
}

TEST(HttpAddressTest, WholeAddressLeavesOutTheDefaultPort) {
    for (const char* whole : {"http://a/", "https://a/?b#c", "http://[::1]:443/", "https://a:80/"})
        EXPECT_EQ(toString(parseHttpAddress(whole)), whole);
    EXPECT_EQ(toString(parseHttpAddress("https://a:443")), "https://a/");
}

TEST(HttpAddressTest, EscapesWhatBreaksTheRequestLine) {
    EXPECT_EQ(escapeForRequestLine("/a b?c\\d%20%[]{}|^~'\"<>"), "/a%20b?c\\d%20%[]{}|^~'\"<>");
    EXPECT_EQ(escapeForRequestLine(std::string("\0\r\n\t\x1F \x7F\x80\xFF!~", 11)),
              "%00%0D%0A%09%1F%20%7F%80%FF!~");
}

}  // namespace
}  // namespace velvox
