#include "base/utf16.h"

#include <gtest/gtest.h>

namespace velvox {
namespace {

TEST(Utf16Test, ValidTextSurvivesTheRoundTrip) {
    const std::string text = "b \xC3\xA9 \xE1\xBB\x87\xF0\x9F\x8E\xAC";
    EXPECT_EQ(toUtf16(text), u"b \u00E9 \u1EC7\U0001F3AC");
    EXPECT_EQ(toBytes(toUtf16(text)), text);
}

TEST(Utf16Test, InvalidBytesBecomeLatin1) {
    // A lone continuation byte, a truncated sequence, an overlong form, a surrogate, a code point
    // that is too large, and a truncated sequence at the end.
    EXPECT_EQ(
        toUtf16("\x80|\xC3|\xC0\xAF|\xED\xA0\x80|\xF4\x90\x80\x80|\xE1\xBB"),
        u"\u0080|\u00C3|\u00C0\u00AF|\u00ED\u00A0\u0080|\u00F4\u0090\u0080\u0080|\u00E1\u00BB");
}

TEST(Utf16Test, UnpairedSurrogatesBecomeTheReplacementCharacter) {
    const char16_t text[] = {0xD83C, u'a', 0xDFAC, 0xD83C, 0};
    EXPECT_EQ(toBytes(text), toBytes(u"\uFFFDa\uFFFD\uFFFD"));
}

}  // namespace
}  // namespace velvox
