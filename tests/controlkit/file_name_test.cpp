#include "controlkit/file_name.h"

#include <gtest/gtest.h>

namespace velvox {
namespace {

TEST(FileNameTest, TheExtensionFollowsTheLastDotOfTheName) {
    constexpr std::string_view rows[][2] = {{"a.txt", "txt"},
                                            {"a.tar.gz", "gz"},
                                            {R"(C:\a.b\c)", ""},
                                            {"/a.b/c.d", "d"},
                                            {R"(C:\a.b\.git)", ""},
                                            {"..", ""},
                                            {"a.", ""},
                                            {"", ""},
                                            {R"(C:\a.b\)", ""},
                                            {"..a", "a"},
                                            {"a.\xC3\xA4", "\xC3\xA4"}};
    for (const auto& [path, extension] : rows) EXPECT_EQ(fileExtension(path), extension) << path;
}

TEST(FileNameTest, PatternsMatchWholeNames) {
    constexpr struct {
        std::string_view pattern, matching, other;
    } rows[] = {{"*", "", "-"},
                {"*.htm", "A.HTM", "a.html"},
                {"a?c",
                 "a\xC3\xA4"
                 "c",
                 "ac"},
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
