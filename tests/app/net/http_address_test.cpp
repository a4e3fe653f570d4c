#include "app/net/http_address.h"

#include <gtest/gtest.h>

#include "base/runtime_failure.h"

namespace velvox {
namespace {

TEST(HttpAddressTest, TakesAddressesApart) {
    const std::pair<std::string, HttpAddress> rows[] = {
        {"http://www.a.com/x?y=1#part", {false, "www.a.com", 80, "/x?y=1"}},
        {"a.com", {false, "a.com", 80, "/"}},
        {"a.com?x/y", {false, "a.com", 80, "/?x/y"}},
        {"a.com:8080/x:y", {false, "a.com", 8080, "/x:y"}},
        {"http://a:/x", {false, "a", 80, "/x"}},
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
    for (const char* address : {"", "http:", "http:/a.com", "?x", ":80", "C:\\x", "ftp://a.com/"})
        EXPECT_THROW(parseHttpAddress(address), RuntimeFailure) << address;
    const std::string hosts[] = {"",
                                 "a b",
                                 "a\\b",
                                 "u@a",
                                 "[::1]",
                                 "a:0",
                                 "a:65536",
                                 "a:8x",
                                 "a:9999999999",
                                 "a%41",
                                 std::string("a\0b", 3)};
    for (const std::string& host : hosts)
        EXPECT_THROW(parseHttpAddress("http://" + host + "/"), RuntimeFailure) << host;
    EXPECT_THROW(parseHttpAddress(std::string(256, 'a')), RuntimeFailure);
}

TEST(HttpAddressTest, ResolvesLocations) {
    const HttpAddress plain{false, "h", 81, "/a/b/c?q=1/2"};
    const HttpAddress secure{true, "h", 443, "/"};
    const std::tuple<HttpAddress, std::string, HttpAddress> rows[] = {
        {plain, "http://x/y?z#f", {false, "x", 80, "/y?z"}},
        {plain, "//x:9/y", {false, "x", 9, "/y"}},
        {secure, "//x/y", {true, "x", 443, "/y"}},
        {plain, "/p?x=http://y#f", {false, "h", 81, "/p?x=http://y"}},
        {plain, "./p", {false, "h", 81, "/a/b/p"}},
        {plain, "?z", {false, "h", 81, "/a/b/c?z"}},
        {plain, "", plain},
        // Steps up and down a relative path, as a browser takes them.
        {plain, "../p?x=../y", {false, "h", 81, "/a/p?x=../y"}},
        {plain, "../../../p/.", {false, "h", 81, "/p/"}},
        {plain, "..p/...", {false, "h", 81, "/a/b/..p/..."}},
    };
    for (const auto& [from, location, expected] : rows)
        EXPECT_EQ(resolveLocation(from, location), expected) << location;
    EXPECT_THROW(resolveLocation(plain, "javascript:x"), RuntimeFailure);
}

TEST(HttpAddressTest, EscapesWhatBreaksTheRequestLine) {
    EXPECT_EQ(escapeForRequestLine("/a b?c\\d%20%[]{}|^~'\"<>"), "/a%20b?c\\d%20%[]{}|^~'\"<>");
    EXPECT_EQ(escapeForRequestLine(std::string("\0\r\n\t\x1F \x7F\x80\xFF!~", 11)),
              "%00%0D%0A%09%1F%20%7F%80%FF!~");
}

TEST(HttpAddressTest, SchemeIsNoPort) {
    const std::pair<const char*, const char*> rows[] = {
        {"http://a", "http"}, {"host:80/x", ""}, {"host:80x", "host"}, {"a.b-c+1:x", "a.b-c+1"},
        {"1a:x", ""},         {"a/b:x", ""},     {":x", ""},           {"host:80", ""},
    };
    for (const auto& [address, scheme] : rows) EXPECT_EQ(schemeOf(address), scheme) << address;
}

}  // namespace
}  // namespace velvox
