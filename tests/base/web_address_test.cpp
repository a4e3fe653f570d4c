#include "base/web_address.h"

#include <gtest/gtest.h>

namespace velvox {
namespace {

using namespace std::string_literals;

TEST(WebAddressTest, OnlyWholeWebAddressesMayBeOpened) {
    for (const char* good :
         {"http://h", "HTTPS://h/a b[1].flv", "http://h/\xC3\xA9", "http://h/\""})
        EXPECT_TRUE(isWebAddress(good)) << good;
    for (const std::string& bad :
         {""s, "http:"s, "http://"s, "HTTPS://"s, "http:h"s, "http:/h"s, "httpx://h"s, "ftp://h"s,
          "file:///c:/x.exe"s, "about:blank"s, " http://h"s, "http://h\0.exe"s, "http://h\r\n"s,
          "http://h\x7F"s, "http://h/\x1B"s})
        EXPECT_FALSE(isWebAddress(bad)) << bad;
}

TEST(WebAddressTest, StaysOneArgumentOfACommandLine) {
    const std::pair<std::string, std::string> rows[] = {
        {"http://h:8/a%20b;c='d',e(f)*[1]~!$&?+@#", "http://h:8/a%20b;c='d',e(f)*[1]~!$&?+@#"},
        {"http://a/\" --evil \"x.flv", "http://a/%22%20--evil%20%22x.flv"},
        {"<>\\^`{|}", "%3C%3E%5C%5E%60%7B%7C%7D"},
        {"\0\t\x1F\x7F\x80\xFF"s, "%00%09%1F%7F%80%FF"},
        {"http://h/\xC3\xA9", "http://h/%C3%A9"},
        {"%USERNAME%&%%41%4g%5", "%25USERNAME%25&%25%41%254g%255"},
    };
    for (const auto& [address, escaped] : rows) EXPECT_EQ(escapeForShell(address), escaped);
}

}  // namespace
}  // namespace velvox
