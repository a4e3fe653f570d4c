#include <gtest/gtest.h>

#include "app/form1/form1_design.h"
#include "app/form1/given_address.h"
#include "tests/app/form1/form1_fixture.h"
#include "tests/support/example_addresses.h"

namespace velvox::testing {
namespace {

TEST(StartUpTest, LoadsTheListTheExampleAndTheNews) {
    Form1Fixture fixture;
    fixture.form.Form_Load();
    std::string expected;
    for (const Site& site : sites)
        if (site.catcher) expected += join({"ds+=", site.entry, "\n"});
    EXPECT_EQ(fixture.log.take(), join({expected, "ds=", sites[0].entry,
                                        "\nvd=", exampleAddresses[0], "\nnavigate about:blank\n"}));
    EXPECT_EQ(fixture.form.NewsText, std::string(128, ' ') + "| Loading News....  |");
    EXPECT_EQ(fixture.form.linkin.Text(), "");
    EXPECT_FALSE(fixture.form.outer.Visible());
    EXPECT_FALSE(fixture.form.isButton1.Enabled());
    EXPECT_THROW(designOf("Label99"), RuntimeFailure);
}

TEST(StartUpTest, ChoosingASiteChangesTheExampleAlone) {
    Form1Fixture fixture;
    Form1& form = fixture.form;
    form.Form_Load();
    form.linkin.Text("mine");
    std::vector<std::string> examples = exampleAddresses;
    examples.push_back("http://www.nhacso.net/Music/Album/2007/06/05F62FB2/");
    // The albums have an example, but no entry in the site list, so the test adds their entry.
    form.ds.AddItem("Album Nhacso.net");
    for (std::size_t i = examples.size(); i-- > 0;) {
        form.ds.ListIndex(static_cast<int>(i));
        EXPECT_EQ(form.vd.Caption(), examples[i]);
        EXPECT_EQ(form.linkin.Text(), "mine");
    }
    form.ds.AddItem("clip.vn");
    const auto count = static_cast<int>(examples.size());
    form.ds.ListIndex(count);
    EXPECT_EQ(form.vd.Caption(), examples[0]) << "another letter case is no entry";
    EXPECT_THROW(form.ds.ListIndex(count + 1), RuntimeFailure);
    form.vd.Click();
    EXPECT_EQ(form.linkin.Text(), examples[0]);
}

TEST(StartUpTest, AGivenAddressReplacesTheTextAndUncoversIt) {
    const std::pair<const char*, const char*> texts[] = {
        {"http://a/b", "http://a/b"}, {" \r\n\t http://a/b \n", "http://a/b"},
        {"a b\rmore", "a b"},         {" \t\r\n ", ""},
        {"\n\n\xC3\xA9", "\xC3\xA9"}, {"", ""}};
    for (const auto& [text, address] : texts) EXPECT_EQ(givenAddress(text), address) << text;
    EXPECT_EQ(givenAddress(std::string(100'000, 'h') + "\nhttp://a/"), "")
        << "no address is as long";
    const std::pair<const char*, const char*> shortcuts[] = {
        {"[InternetShortcut]\r\nURL=http://a/?b=c\r\n", "http://a/?b=c"},
        {"[Other]\nURL=no\n[internetshortcut]\nIDList=\nurl= http://b/ \nURL=late", "http://b/"},
        {"URL=http://a/", ""},
        {"[InternetShortcut]", ""}};
    for (const auto& [content, address] : shortcuts) EXPECT_EQ(shortcutAddress(content), address);

    Form1Fixture fixture;
    Form1& form = fixture.form;
    form.linkin.Text("old");
    form.linkin.Enabled(false);
    form.takeAddress("\n");
    EXPECT_EQ(form.linkin.Text(), "old");
    form.takeAddress(" new ");
    EXPECT_EQ(form.linkin.Text(), "new") << "also while the box is locked";
    form.outer.Visible(true);
    form.takeAddress("during a run");
    EXPECT_EQ(form.linkin.Text(), "new");
    form.isButton1.Enabled(true);
    form.takeAddress("after it");
    EXPECT_EQ(form.linkin.Text(), "after it");
    EXPECT_FALSE(form.outer.Visible());
}

TEST(StartUpTest, HomeOpensAndBlinksAndCloseStopsTheBrowser) {
    Form1Fixture fixture;
    Form1& form = fixture.form;
    form.Label12.Click();
    form.isButton1_Click();
    EXPECT_EQ(fixture.log.take(),
              "shell open http://www.velvox.example/\nnavigate about:blank\nouter.Visible False\n");
    for (const OleColour expected : {0xFFU, 0xFF0000U, 0xFFU}) {
        form.Timer1.Tick();
        EXPECT_EQ(form.Label12.ForeColor(), expected);
    }
}

}  // namespace
}  // namespace velvox::testing
