#include "app/net/resolve_location.h"

#include <gtest/gtest.h>

#include "base/runtime_failure.h"

namespace velvox {
namespace {

using namespace std::string_literals;

/// The resolved address, or in parentheses the reason of a failure.
std::string resolved(std::string_view base, std::string_view location) {
    try {
        return toString(resolveLocation(parseHttpAddress(base), location));
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.fault(), Fault::Transfer);
        return "("s + failure.what() + ")";
    }
}

// Browsers resolve the same base addresses and locations to the expected values.
TEST(ResolveLocationTest, FollowsReferencesAsBrowsersDo) {
    const std::string_view plain = "http://h:81/a/b/c?q=1/2";
    // A page at this address is fetched with exactly these bytes. As a base, the address is first
    // normalised as browsers do.
    const std::string_view odd = "https://WWW.h/a b\\c/%2e/d?'\"#f";
    const std::tuple<std::string_view, std::string_view, const char*> rows[] = {
        {plain, "HTTP://X/y?z#f", "http://x/y?z#f"},
        {plain, "//x:9/y", "http://x:9/y"},
        {plain, "\\\\x\\y", "http://x/y"},
        {plain, "/p?x=http://y#f", "http://h:81/p?x=http://y#f"},
        {plain, "?z", "http://h:81/a/b/c?z"},
        {plain, "?", "http://h:81/a/b/c?"},
        {plain, "#f", "http://h:81/a/b/c?q=1/2#f"},
        {plain, "p:", "(Only http and https addresses can be fetched)"},
        {plain, "./p:", "http://h:81/a/b/p:"},
        {plain, "1a:x", "http://h:81/a/b/1a:x"},
        // Segments "." and "..", written plainly or escaped.
        {plain, "../p?x=../y", "http://h:81/a/p?x=../y"},
        {plain, "../../../p/.", "http://h:81/p/"},
        {plain, "..p/...", "http://h:81/a/b/..p/..."},
        {plain, "%2E%2e/.%2E/%2e", "http://h:81/"},
        {plain, "/a\\..\\b//../c", "http://h:81/b/c"},
        // Missing and superfluous slashes after the scheme.
        {plain, "http:p", "http://h:81/a/b/p"},
        {plain, "http:/p", "http://h:81/p"},
        {plain, "http:", "http://h:81/a/b/c?q=1/2"},
        {plain, "https:x/y", "https://x/y"},
        {plain, "https:\\/\\/x/y", "https://x/y"},
        // Blanks, controls and characters that a browser escapes.
        {plain, "\x01 \t/p\r\nq\t \x1F", "http://h:81/pq"},
        {plain, "ht\ntp://x/\ty", "http://x/y"},
        {plain, "/ \"<>^`{|}[]'%%41\x7F\xC3\xA9?",
         "http://h:81/%20%22%3C%3E%5E%60%7B|%7D[]'%%41%7F%C3%A9?"},
        {plain, "? \"<>^`{|}[]\\'\xFF", "http://h:81/a/b/c?%20%22%3C%3E^`{|}[]\\%27%FF"},
        {plain, "#\x01 \"<>^`{|}#\\'", "http://h:81/a/b/c?q=1/2#%01%20%22%3C%3E^%60{|}#\\'"},
        {plain, "", "(The redirect does not say where it leads)"},
        {plain, " \r\n ", "(The redirect does not say where it leads)"},
        {odd, "e", "https://www.h/a%20b/c/e"},
        {odd, "#g", "https://www.h/a%20b/c/d?%27%22#g"},
        {odd, "http:e", "http://e/"},
        // If the location names no host, the base's host is kept without a check.
        {"http://H\xC3\x96st.1/", "/x", "http://h\xC3\x96st.1/x"},
    };
    for (const auto& [base, location, expected] : rows)
        EXPECT_EQ(resolved(base, location), expected) << base << " and " << location;
}

TEST(ResolveLocationTest, ReadsHostsAsBrowsersDo) {
    const char* const beyondAscii = "(The host name is not in its ASCII form)";
    const char* const credentials = "(The address has a user name or password in it)";
    const char* const badPort = "(The address has a port that cannot be one)";
    const std::pair<const char*, const char*> rows[] = {
        {"A_b-c.%43om.", "http://a_b-c.com./"},
        {"xn--Hst-sna", "http://xn--hst-sna/"},
        {"h\xC3\xB6st", beyondAscii},
        {"h%C3%B6st", beyondAscii},
        {"0x7F.1", "http://127.0.0.1/"},
        {"017700000001.", "http://127.0.0.1/"},
        {"4294967295", "http://255.255.255.255/"},
        {"0x", "http://0.0.0.0/"},
        {"1.2.3.4a", "http://1.2.3.4a/"},
        {"[1:0:0:4::0:C]:8", "http://[1:0:0:4::c]:8/"},
        {"[0:0:1:0:0:0:1:1]", "http://[0:0:1::1:1]/"},
        {"[::]", "http://[::]/"},
        {"[2001:DB8::]", "http://[2001:db8::]/"},
        {"[::ffff:1.2.3.4]", "http://[::ffff:102:304]/"},
        {"[1:2:3:4:5:6:7::]", "http://[1:2:3:4:5:6:7:0]/"},
        {"a:00080", "http://a/"},
        {"a:", "http://a/"},
        {"a:443", "http://a:443/"},
        {"a:0", "http://a:0/"},
        {"a:65536", badPort},
        {"a:8x", badPort},
        {"a:-1", badPort},
        {"@a", "http://a/"},
        {":@a", "http://a/"},
        {"u@a", credentials},
        {":p@a", credentials},
        {"@@a", credentials},
    };
    for (const auto& [host, expected] : rows)
        EXPECT_EQ(resolved("http://h/", "http://"s + host + "/"), expected) << host;
    for (const std::string& host :
         {""s, std::string(256, 'a'), "a b"s, "a%00"s, "a%2Fb"s, "a%zz"s, ":80"s, "a|b"s,
          // A host that is a number must be an IPv4 address.
          "4294967296"s, "1.256.3.4"s, "1.2.3.4.5"s, "1..2"s, "1.2.08"s, "a.1"s,
          std::string(20, '9'), "0xfffffffffffffffffff"s,
          // Invalid IPv6 addresses.
          "[]"s, "[1::2::3]"s, "[1:2:3:4:5:6:7:8::]"s, "[1:2:3:4:5:6:7]"s, "[:1]"s, "[::1.2.3]"s,
          "[::1.2.3.04]"s, "[::1.2.3.256]"s, "[1.2.3.4::]"s, "[::12345]"s, "[::g]"s, "[::1"s,
          "[::1]x"s})
        EXPECT_EQ(resolved("http://h/", "http://" + host),
                  "(The address has no host name that can be one)")
            << host;
}

}  // namespace
}  // namespace velvox
