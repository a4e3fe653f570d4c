#include "tools/drive/line.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace velvox::drive {
namespace {

TEST(DriverLine, AnyTextIsOneLineAndComesBack) {
    const std::string text("a 'b' \"c\"\r\n\0d\\n \xC3\xA4", 18);
    const std::string line = escaped(text);
    EXPECT_EQ(line.find_first_of(std::string("\r\n\0", 3)), line.npos);
    EXPECT_EQ(words("set \"" + line + "\""), (std::vector<std::string>{"set", text}));
}

TEST(DriverLine, WordsAreQuotedOrApart) {
    EXPECT_EQ(words("  wait Form1=\"Velvox 1.00\"/EDIT \"\" 10\r"),
              (std::vector<std::string>{"wait", "Form1=Velvox 1.00/EDIT", "", "10"}));
    EXPECT_TRUE(words(" ").empty());
}

TEST(DriverLine, BrokenRequestsAreRefused) {
    for (const char* line : {"text \"open", "text \\q", "text \\"}) {
        EXPECT_THROW(words(line), std::runtime_error) << line;
    }
}

}  // namespace
}  // namespace velvox::drive
