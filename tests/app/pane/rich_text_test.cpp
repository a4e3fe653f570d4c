#include "app/pane/rich_text.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

namespace velvox {
namespace {

RichText written(std::string_view html) {
    return toRichText(parseHtmlFragment(html), {});
}

// The RTF stream without its header.
std::string body(const RichText& text) {
    constexpr std::string_view start = "\\pard\\f0\\fs20 ";
    const auto at = text.rtf.find(start);
    EXPECT_NE(at, std::string::npos);
    EXPECT_EQ(text.rtf.back(), '}');
    return text.rtf.substr(at + start.size(), text.rtf.size() - at - start.size() - 1);
}

TEST(RichTextTest, ColoursAndFontsComeFromTables) {
    const RichText text =
        written("<font face='Courier New' size=4 color='#010203'>a</font>b<a href='u'>c</a>");
    EXPECT_NE(text.rtf.find("{\\f0\\fnil Tahoma;}{\\f1\\fnil Courier New;}"), std::string::npos);
    EXPECT_NE(text.rtf.find("{\\colortbl;\\red1\\green2\\blue3;\\red0\\green0\\blue255;}"),
              std::string::npos);
    EXPECT_EQ(body(text), "\\f1\\fs27\\cf1 a\\f0\\fs20\\cf0 b\\cf2\\ul c");

    // A font name cannot insert commands into the stream.
    const RichText hostile = written("<font face='}{\\object;'>a</font>");
    EXPECT_NE(hostile.rtf.find("{\\f1\\fnil object;}"), std::string::npos);
}

// The system's window and link colours in usual and in high contrast schemes.
TEST(RichTextTest, LinksAndColouredTextAreLegibleInEveryScheme) {
    const struct {
        Rgb window, link;
        double linkContrast, plainContrast;
    } schemes[] = {
        {rgb(255, 255, 255), rgb(0, 102, 204), 4.5, 3},
        {rgb(255, 255, 255), rgb(0, 255, 255), 4.5, 3},
        {rgb(32, 32, 32), rgb(0, 102, 204), 4.5, 3},
        {rgb(128, 128, 128), rgb(0, 0, 255), 4.5, 3},
        {rgb(0, 0, 0), rgb(128, 128, 255), 7, 7},
        {rgb(0, 0, 0), rgb(255, 255, 0), 7, 7},
        {rgb(0, 0, 0), rgb(0, 0, 255), 7, 7},
        {rgb(255, 255, 255), rgb(0, 102, 204), 7, 7},
    };
    const auto html = parseHtmlFragment(
        "<a href='u'>x<font color=#0000fe>x</font><font color=#fefe00>x</font></a>"
        "<font color=red>x</font><font color=navy>x</font><font color=white>x</font>");
    for (const auto& [window, link, linkContrast, plainContrast] : schemes) {
        const std::string rtf = toRichText(html, {window, link, linkContrast, plainContrast}).rtf;
        std::vector<Rgb> colours;
        for (std::size_t at = rtf.find("\\red"); at != rtf.npos; at = rtf.find("\\red", at + 1)) {
            int red = 0, green = 0, blue = 0;
            std::sscanf(rtf.c_str() + at, "\\red%d\\green%d\\blue%d", &red, &green, &blue);
            colours.push_back(rgb(red, green, blue));
        }
        ASSERT_EQ(colours.size(), 6U);
        for (std::size_t i = 0; i < colours.size(); ++i)
            EXPECT_GE(contrast(colours[i], window), i < 3 ? linkContrast : plainContrast)
                << std::hex << window << ' ' << link << ", colour " << i;
    }
    // If a pale system colour were made darker, links would look like disabled text.
    const PaneColours pale{.link = rgb(200, 200, 200)};
    EXPECT_NE(toRichText(html, pale).rtf.find("\\red0\\green0\\blue255;"), std::string::npos);
    EXPECT_NE(written("<font color=red>x</font>").rtf.find("\\red255\\green0\\blue0;"),
              std::string::npos);
}

TEST(RichTextTest, LinksHaveTheirOwnRangesAndNeighboursShareASpan) {
    const RichText list = written(
        "<font face='tahoma' size='2'><a href='http://u1'>One<a></font><br>"
        "<font face='tahoma' size='2'><a href='u2'>Two<a></font><br>"
        "and <a href='u3'>&#128512;</a><a href='nothing'></a> end");
    ASSERT_EQ(list.links.size(), 3U);
    EXPECT_EQ(list.links[1].begin, 4U);
    EXPECT_EQ(list.links[1].end, 7U);
    EXPECT_EQ(list.lines, 3U);
    EXPECT_EQ(list.spans, (std::vector<CharacterRange>{{0, 7}, {12, 14}}));
    EXPECT_EQ(addressList(list.links), "http://u1\r\n");
    // The stream does not change the format between adjacent links of the list.
    EXPECT_EQ(body(list).substr(0, 26), "\\cf1\\ul One\\par\nTwo\\par\n\\c");
}

TEST(RichTextTest, LinksAreFoundByCharacter) {
    const auto links = written("a<a href='1'>bc</a><a href='2'>d</a> <a href='3'>e</a>").links;
    const struct {
        std::size_t character;
        const char *at, *after, *before;
    } rows[] = {{0, "", "1", ""},  {1, "1", "2", ""}, {2, "1", "2", ""}, {3, "2", "3", "1"},
                {4, "", "3", "2"}, {5, "3", "", "2"}, {6, "", "", "3"},  {99, "", "", "3"}};
    const auto name = [](const TextLink* link) { return link ? link->address : std::string(); };
    for (const auto& row : rows) {
        EXPECT_EQ(name(linkAt(links, row.character)), row.at) << row.character;
        EXPECT_EQ(name(linkAfter(links, row.character)), row.after) << row.character;
        EXPECT_EQ(name(linkBefore(links, row.character)), row.before) << row.character;
    }
    EXPECT_EQ(linkAt({}, 0), nullptr);
}

TEST(RichTextTest, EndlessLinesAreBrokenAndLinksStayInPlace) {
    const RichText text = written("<a href='u'>" + std::string(longText + 1, 'x') + "</a> tail");
    const std::size_t breaks = longText / maxLineLength;
    EXPECT_EQ(text.lines, 1 + breaks);
    EXPECT_EQ(text.links.at(0).end, longText + 1 + breaks);
    EXPECT_EQ(written(std::string(longText, 'x')).lines, 1U);
    // Lines are broken at the same width in any font size, and never inside a character.
    EXPECT_GT(written("<font size=7>" + std::string(longText + 1, 'x')).lines, 3 * breaks);
    EXPECT_EQ(body(written(std::string(maxLineLength - 1, 'x') + "&#128512;" +
                           std::string(longText, 'x')))
                  .substr(maxLineLength - 1, 22),
              "\\u-10179?\\u-8704?\\par\n");
}

std::string repeated(const std::string& unit, std::size_t count) {
    std::string all;
    while (count-- > 0) all += unit;
    return all;
}

// The pane limits what a text may cost the control. The longest list fits. Each text below costs
// too much by its characters, lines, links or fonts.
TEST(RichTextTest, TheLongestListFitsAndWhatCostsMoreEndsInANotice) {
    const std::string address(20, 'p');
    const RichText longest = written(repeated(
        "<font face='tahoma' size='2'><a href='" + address + "'>Download Image 32767<a></font><br>",
        32767));
    EXPECT_FALSE(longest.truncated);
    EXPECT_EQ(longest.links.size(), 32767U);
    std::string fonts;
    for (int i = 0; i < 15'000; ++i) fonts += "<font face=f" + std::to_string(i % 60) + ">x</font>";
    for (const std::string& html :
         {std::string(500'000, '<'), "<font size=7>" + std::string(450'000, 'x'),
          std::string(300'000, '\xFF'), std::string(4'100'000, '\0'), repeated("<br>", 60'000),
          repeated("x<br>", 60'000), repeated("<a href=h>x</a>y", 50'000), fonts}) {
        const RichText text = written(html);
        EXPECT_TRUE(text.truncated) << html.substr(0, 30);
        EXPECT_TRUE(text.rtf.ends_with(std::string(restNotice) + '}')) << html.substr(0, 30);
    }
}

}  // namespace
}  // namespace velvox
