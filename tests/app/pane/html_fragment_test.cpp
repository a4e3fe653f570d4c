#include "app/pane/html_fragment.h"

#include <gtest/gtest.h>

#include <ctime>
#include <iomanip>
#include <sstream>
#include <string>

#include "base/text.h"

namespace velvox {
namespace {

using namespace std::string_literals;

// Writes each part of uniform look as "[face size colour link|text]", without values that are the
// default.
std::string describe(const HtmlFragment& html) {
    std::ostringstream out;
    for (const auto& [begin, end, look, link] : html.runs) {
        out << '[';
        if (look.face != 0) out << html.faces[look.face] << ' ';
        if (look.halfPoints != 20) out << look.halfPoints << ' ';
        if (look.colour != TextLook::automatic)
            out << std::hex << std::uppercase << std::setw(6) << std::setfill('0') << look.colour
                << std::dec << ' ';
        if (link != TextRun::noLink) out << html.addresses[static_cast<std::size_t>(link)] << ' ';
        out << '|' << html.text.substr(begin, end - begin) << ']';
    }
    return text::replaceAll(out.str(), " |", "|");
}

void expectRuns(std::initializer_list<std::pair<std::string, std::string>> rows) {
    for (const auto& [html, runs] : rows)
        EXPECT_EQ(describe(parseHtmlFragment(html)), runs) << html;
}

TEST(HtmlFragmentTest, TagsAttributesAndText) {
    expectRuns({
        {"<FONT FACE=Verdana COLOR=#12abEF SIZE=\"7\">x</FONT>y", "[Verdana 72 EFAB12|x][|y]"},
        {"<font face='Courier New, serif' size='+1'>x<font size=-2>y</font>z</font>",
         "[Courier New 27|x][Courier New 15|y][Courier New 27|z]"},
        {"<font size=99>a</font><font size=x color=mauve>b", "[72|a][|b]"},
        {"<p>one <b>two</b><img src='x'> three", "[|one two three]"},
        {"a < b <3 </ > c<>", "[|a < b <3 </ > c<>]"},
        {"x<!-- <b> -->y<!doctype html>z<?xml?>!", "[|xyz!]"},
        {"a<!-- never ended <b>c", "[|ac]"},
        // White space as in HTML: several blanks become one, and blanks at a line break or an end
        // are removed.
        {" \t a \r\n b<br> \n c <br>", "[|a b\nc\n]"},
        {"a <a href='u'> b </a> c", "[|a ][u|b ][|c]"},
        {"a&nbsp; &nbsp;b", "[|a\xC2\xA0 \xC2\xA0"s + "b]"},
        {"&amp;lt;&lt;&gt;&quot;&#39;&#x41;&#65;", "[|&lt;<>\"'AA]"},
        {"&unknown;&;&#;&#x;&#99999999999;&amp", "[|&unknown;&;&#;&#x;&#99999999999;&amp]"},
        {"&#0;&#xD800;&#1114112;&#128512;",
         "[|\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xF0\x9F\x98\x80]"},
        {"a\0b"s, "[|a\0b]"s},
        // Forms that the catchers write.
        {"<a href='http://h/a b&t=1'><font face='tahoma' size=2>Download</font></a>",
         "[http://h/a b&t=1|Download]"},
        {"\r\n<br><font face='tahoma' size='2'><a href='http://h/1'>Download FLV</a>"
         "\r\n<br><font face='tahoma' size='2'><a href='http://h/2'>Download AVI</a>",
         "[|\n][http://h/1|Download FLV][|\n][http://h/2|Download AVI]"},
    });
}

TEST(HtmlFragmentTest, BrokenNestingAndHostileAddresses) {
    expectRuns({
        {"</font></a><a href='u'>x", "[u|x]"},
        {"<a href=''>x</a>", "[|x]"},  // an empty address makes no link
        {"<font color=red><a href='u'>x</a>y<a href='v'><font color=lime>z</font></a></font>",
         "[u|x][0000FF|y][00FF00 v|z]"},
        // As in browsers, a quote in an address ends the address.
        {"<a href='http://h/it's'>y</a>", "[http://h/it|y]"},
        {"<a href=\"it's\" href='second'>y</a>", "[it's|y]"},
        {"<a href=\" java\nscript:x\t \">y</a>", "[javascript:x|y]"},
        {"<a href='h\0i'>y</a>"s, "[hi|y]"},
        {"<a href='?a=1&amp;b=2&copy=3&lt=4'>y</a>", "[?a=1&b=2&copy=3&lt=4|y]"},
        {"<a href=http://h/a/b>y</a>", "[http://h/a/b|y]"},
        // A tag that is never closed is shown as text.
        {"x<a href='u>y</a>", "[|x<a href='u>y</a>]"},
        {"x<", "[|x<]"},
        // An address longer than the maximum makes no link.
        {"<a href=" + std::string(maxAddressLength + 1, 'h') + ">x</a>", "[|x]"},
    });
}

// Each of these inputs once took quadratic time (hours), or would take it in a parser that searches
// again from every "<".
TEST(HtmlFragmentTest, TimeIsLinear) {
    constexpr std::size_t size = 200'000;
    for (const char* unit : {"<", "&", "<a ", "<a href='", "</a", "<!--", "<font size=1>a",
                             "<a href=x>y</a>z", "<font color=red>", " \n"}) {
        std::string html;
        while (html.size() < size) html += unit;
        const std::clock_t begin = std::clock();
        parseHtmlFragment(html);
        EXPECT_LT(std::clock() - begin, 10 * CLOCKS_PER_SEC) << unit;
    }
}

TEST(HtmlFragmentTest, WhatIsKeptIsBounded) {
    std::string faces;
    for (int i = 0; i < 1000; ++i) faces += "<font face=f" + std::to_string(i) + ">x</font>";
    const HtmlFragment parsed = parseHtmlFragment(faces);
    EXPECT_LE(parsed.faces.size(), 64U);
    EXPECT_EQ(parsed.text.size(), 1000U);

    const std::string longLink = "<a href=" + std::string(maxAddressLength, 'h') + ">x</a>";
    const std::pair<std::string, std::size_t> pages[] = {{"<a href=h>x</a>", 4'000'000},
                                                         {longLink, 17'000'000}};
    for (const auto& [unit, size] : pages) {
        std::string html;
        while (html.size() < size) html += unit;
        const HtmlFragment page = parseHtmlFragment(html);
        EXPECT_TRUE(page.truncated);
        std::size_t kept = page.text.capacity() + page.runs.size() * sizeof page.runs[0];
        for (const std::string& address : page.addresses) kept += sizeof address + address.size();
        EXPECT_LT(kept, 40'000'000U) << unit.substr(0, 20);
    }
    // Links without text are dropped, and a deeply nested font ends with its own closing tag.
    std::string nested = "<a href=a>";
    for (int i = 0; i < 5000; ++i) nested += "<a href=h><font size=7>";
    nested += "x";
    for (int i = 0; i < 5000; ++i) nested += "</font>";
    const HtmlFragment deep = parseHtmlFragment(nested + "y");
    EXPECT_EQ(deep.addresses.size(), 1U);
    EXPECT_EQ(describe(deep), "[72 h|x][h|y]");
}

}  // namespace
}  // namespace velvox
