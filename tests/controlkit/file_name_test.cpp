#include "controlkit/file_name.h"

#include <gtest/gtest.h>

namespace velvox {
namespace {

TEST(FileNameTest, TheExtensionFollowsTheLastDotOfTheName) {
    for (const std::string_view row :
         {"a.txt|txt", "a.tar.gz|gz", "C:\\a.b\\c|", "/a.b/c.d|d", "C:\\a.b\\.git|", "..|", "a.|",
          "|", "C:\\a.b\\|", "..a|a", "a.\xC3\xA4|\xC3\xA4"}) {
        const auto end = row.find('|');
        EXPECT_EQ(fileExtension(row.substr(0, end)), row.substr(end + 1)) << row;
    }
}

TEST(FileNameTest, PatternsMatchWholeNames) {
    constexpr struct {
        std::string_view pattern, matching, other;
    } rows[] = {{"*", "", "-"},
                {"*.htm", "A.HTM", "a.html"},
                {"a?-", "a\xC3\xA4-", "a-"},
                {"?", "\xF0\x9F\x98\x80", "ab"},
                {"*a*b", "xaxaxb", "xaxbx"},
                {"*.jpg;*.png", "a.png", "a.jpgx"},
                {"a*", "a", "ba"},
                {";b", "b", "a"},
                {"**a", "a", ""},
                {"*\xC3\xA4", "\xC3\xA4", "\xC3\x84"}};
    for (const auto& [pattern, matching, other] : rows) {
        EXPECT_TRUE(matchesPattern(matching, pattern)) << pattern;
        EXPECT_TRUE(other == "-" || !matchesPattern(other, pattern)) << pattern;
    }
    const std::string many(20000, 'a');
    EXPECT_FALSE(matchesPattern(many, "*a*a*a*a*b")) << "in a time that can be waited for";
}

}  // namespace
}  // namespace velvox
