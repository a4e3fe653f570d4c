#include "controls/text_box/xp_text_box.h"

#include <gtest/gtest.h>

#include <vector>

#include "base/runtime_failure.h"
#include "tests/support/property_table.h"

namespace velvox {
namespace {

using testing::Property;
using testing::property;

/// All properties but SelText, in stored order.
std::vector<Property<XPTextBox>> properties() {
    using B = XPTextBox;
    using enum ControlChange;
    const std::string text = "other";
    return {property("Alignment", &B::Alignment, &B::Alignment, std::int16_t{2}, {Appearance}),
            property("BackColor", &B::BackColor, &B::BackColor, 0x123456U, {Appearance}),
            property("Enabled", &B::Enabled, &B::Enabled, false, {Enabled}),
            property("Font", &B::Font, &B::Font, Font{.name = "Arial"}, {Appearance}),
            property("ForeColor", &B::ForeColor, &B::ForeColor, 0x654321U, {Appearance}),
            property("Locked", &B::Locked, &B::Locked, true, {Other}),
            property("MaxLength", &B::MaxLength, &B::MaxLength, 9, {Other}),
            property("PasswordChar", &B::PasswordChar, &B::PasswordChar, text, {Other}),
            property("SelStart", &B::SelStart, &B::SelStart, 2, {Selection}),
            property("SelLength", &B::SelLength, &B::SelLength, 3, {Selection}),
            property("Text", &B::Text, &B::Text, text, {Text}),
            property("ToolTipText", &B::ToolTipText, &B::ToolTipText, text, {Other}),
            property("DataFields", &B::DataFields, &B::DataFields, text, {})};
}

/// A fake of the inner box's window.
struct View : TextBoxView {
    explicit View(TextBox& box) : model(box) { model.setTextView(this); }
    ~View() override { model.setTextView(nullptr); }
    void controlChanged(ControlChange change) override { followed.push_back(change); }
    Selection selection() const override { return model.wantedSelection(); }
    void focus() override { ++focused; }

    TextBox& model;
    std::vector<ControlChange> followed;
    int focused = 0;
};

class XPTextBoxTest : public ::testing::Test {
 protected:
    XPTextBoxTest() {
        box.MyTxt.Text("Text1");
        box.PropertyChanged = [this](std::string_view name) { notices.append(name) += ' '; };
        box.Change = [this] { notices += "! "; };
        box.Move({0, 0, 3000, 330});
    }
    std::string take() { return std::exchange(notices, {}); }
    static PropertyBag stored(const XPTextBox& box) {
        PropertyBag bag;
        box.WriteProperties(bag);
        return bag;
    }

    XPTextBox box{"linkin"};
    std::string notices;
};

TEST_F(XPTextBoxTest, LaysOutTheInnerBoxAndTheFrame) {
    const Rgb line = rgb(127, 157, 185);
    EXPECT_EQ(box.MyTxt.bounds(), (Bounds{45, 45, 2910, 240}));
    EXPECT_EQ(box.Pic.BackColor(), static_cast<OleColour>(rgb(240, 232, 224)));
    const std::array<DrawnLine, 4> frame{{{0, 0, 3000, 0, line},
                                          {0, 0, 0, 330, line},
                                          {2985, 0, 2985, 330, line},
                                          {0, 315, 3000, 315, line}}};
    EXPECT_EQ(box.frame(), frame);
    XPTextBox dense("dense", 10);
    dense.Move({0, 0, 600, 300});
    EXPECT_EQ(dense.MyTxt.bounds(), (Bounds{30, 30, 540, 240}));
    EXPECT_EQ(dense.frame()[2].x1, 590);

    // The control is too small for its inner box.
    box.Move({0, 0, 75, 75});
    EXPECT_EQ(box.MyTxt.bounds(), (Bounds{45, 45, 0, 0}));
    box.Move({0, 0, 3000, 330});
    EXPECT_EQ(box.MyTxt.Height(), 240);
}

// A window is up to a pixel smaller or larger than its size in twips suggests.
TEST(XPTextBoxMarginTest, TextKeepsThreePixelsFromEveryEdgeAtEveryResolution) {
    for (int dpi = 96; dpi <= 240; ++dpi) {
        XPTextBox box("box", twipsPerInch / dpi);
        for (int at = 100; at < 130; ++at) {
            box.Move({at, at, 2900 + 7 * at, 250 + 3 * at});
            const int width = toPixels(at + box.Width(), dpi) - toPixels(at, dpi);
            const int height = toPixels(at + box.Height(), dpi) - toPixels(at, dpi);
            ASSERT_EQ(box.textBounds(width, height, dpi), (Rect{3, 3, width - 3, height - 3}))
                << dpi << ' ' << at;
        }
    }
}

TEST_F(XPTextBoxTest, ResizeMakesTheBoxWhiteEnabledAndUnlocked) {
    box.Enabled(false), box.Locked(true), box.BackColor(1), box.ForeColor(2);
    box.Width(3015);
    EXPECT_EQ(stored(box), (PropertyBag{{"BackColor", 0xFFFFFF}, {"ForeColor", 2}}));
    EXPECT_FALSE(box.Pic.Enabled()) << "only Locked touches the frame";
    box.PaintFrame(9, XPTextBox::Look::Disabled);
    EXPECT_EQ(stored(box), (PropertyBag{{"BackColor", rgb(235, 235, 228)},
                                        {"Enabled", false},
                                        {"ForeColor", rgb(161, 161, 146)}}));
    EXPECT_EQ(box.Pic.BackColor(), 9U);
    box.PaintFrame(9, XPTextBox::Look::ReadOnly);
    EXPECT_TRUE(box.Enabled() && box.Locked());
}

TEST_F(XPTextBoxTest, EachPropertyIsStoredFollowedNotifiedAndWritten) {
    PropertyBag all;
    for (const auto& p : properties()) {
        XPTextBox fresh("fresh");
        fresh.MyTxt.Text("Text1");
        const View view(fresh.MyTxt);
        fresh.PropertyChanged = [this](std::string_view name) { notices += name; };
        EXPECT_FALSE(p.isSet(fresh)) << p.key << " by default";
        p.set(fresh);
        EXPECT_EQ(take(), p.key);
        EXPECT_EQ(view.followed, p.followed) << p.key;
        EXPECT_TRUE(p.isSet(fresh)) << p.key;
        PropertyBag expected{{p.key, p.value}};
        if (p.key == std::string_view("SelLength"))
            expected = {{"SelText", "Tex"}, {"SelLength", 3}};
        EXPECT_EQ(stored(fresh), expected);
        if (!std::string_view(p.key).starts_with("Sel")) all.write(p.key, p.value);
    }
    box.ReadProperties(all);
    EXPECT_EQ(take(), "! ") << "no notice while reading";
    EXPECT_EQ(stored(box), all) << "in order";
    EXPECT_TRUE(box.Pic.Enabled());
    EXPECT_EQ(box.MyTxt.DataField(), "");
    box.DataFields("field");
    EXPECT_EQ(box.MyTxt.DataField(), "field");
}

TEST_F(XPTextBoxTest, TextAndSelectionFollowEachOther) {
    box.MaxLength(10), box.Text("0123456789ABC"), box.SelStart(2), box.SelLength(3);
    EXPECT_EQ(box.SelText(), "234");
    take();
    box.SelText("x");
    EXPECT_EQ(take(), "! SelText ");
    EXPECT_EQ(box.Text(), "01x56789");
    EXPECT_EQ(box.SelStart(), 3);
    box.Text("01x56789");
    EXPECT_EQ(take(), "Text ") << "the same text is no change";
    EXPECT_EQ(box.SelStart(), 0) << "but the caret returns to its start";

    // MaxLength counts characters. Added text is cut, existing text is not.
    const std::string wide = "\xE1\xBA\xBF";
    const std::string pair = "\xF0\x9F\x98\x80";
    box.MaxLength(3), box.Text(wide + pair + wide + wide);
    EXPECT_EQ(box.Text(), wide + pair + wide);
    box.SelStart(3), box.SelText("xy");
    EXPECT_EQ(box.Text(), wide + pair + wide);
    box.SelLength(4), box.SelText("xy");
    EXPECT_EQ(box.Text(), wide + 'x' + wide);
    box.MaxLength(1), box.SelText("y");
    EXPECT_EQ(box.Text(), wide + 'x' + wide) << "only what is entered from now on";
    box.MaxLength(0), box.Text("01x56789");

    // Invalid values are clipped, or rejected without a notification.
    box.SelStart(6);
    box.SelLength(99);
    EXPECT_EQ(box.SelText(), "89");
    EXPECT_EQ(box.SelLength(), 2);
    box.SelStart(99);
    EXPECT_EQ(box.SelStart(), 8);
    box.Alignment(3);
    EXPECT_EQ(box.Alignment(), 0);
    take();
    EXPECT_THROW(box.Alignment(-1), RuntimeFailure);
    EXPECT_THROW(box.SelStart(-1), RuntimeFailure);
    EXPECT_THROW(box.SelLength(-1), RuntimeFailure);
    EXPECT_THROW(box.MaxLength(-1), RuntimeFailure);
    EXPECT_EQ(take(), "");
}

TEST_F(XPTextBoxTest, EventsAndFocusPassBetweenTheBoxes) {
    View view(box.MyTxt);
    box.Focus();
    EXPECT_EQ(view.focused, 1);
    EXPECT_EQ(box.SelText(), "Text1");
    box.Click = [this] { notices += "click "; };
    box.DblClick = [this] { notices += "double "; };
    box.KeyPress = [](std::int16_t& key) { ++key; };
    box.MouseMove = [this](int button, int shift, float x, float y) {
        notices += std::to_string(button + 10 * shift + 100 * static_cast<int>(x + 10 * y));
    };
    std::int16_t key = 'a';
    take();
    box.MyTxt.Click(), box.MyTxt.DblClick(), box.MyTxt.KeyPress(key);
    box.MyTxt.MouseMove(1, 2, 3, 4);
    box.MyTxt.typed("Text1"), box.MyTxt.typed("y");
    EXPECT_EQ(take(), "click double 4321! ");
    EXPECT_EQ(key, 'b');
    EXPECT_EQ(box.Text(), "y");
}

TEST_F(XPTextBoxTest, ValueIsTheNumberAtTheStart) {
    const std::pair<const char*, double> rows[] = {
        {"", 0},     {"12abc", 12},  {"abc12", 0}, {"  7", 7},     {"-3.5x", -3.5}, {"+4", 4},
        {".5", 0.5}, {"1E-2", 0.01}, {"1e", 1},    {"1.2.3", 1.2}, {"-", 0},        {"-.", 0},
        {"--1", 0},  {"+-1", 0},     {"inf", 0},   {"-nan", 0},    {"0x10", 0},     {"1e-9999", 0}};
    for (const auto& [text, value] : rows) {
        box.Text(text);
        EXPECT_EQ(box.GetValue(), value) << text;
    }
    box.Text("1e9999");
    EXPECT_THROW(box.GetValue(), RuntimeFailure);
}

TEST_F(XPTextBoxTest, NewInstanceShowsItsNameAndALoadedOneItsDefault) {
    struct : ControlObserver {
        void controlChanged(ControlChange change) override {
            layouts += change == ControlChange::Appearance;
        }
        int layouts = 0;
    } view;
    box.setObserver(&view);
    box.Enabled(false);
    // A box without a size, one whose height InitProperties changes, and one that already has the
    // height of a new instance.
    for (const Bounds& place : {Bounds{}, {0, 0, 3000, 500}, {0, 0, 3000, 330}}) {
        box.Move(place);
        view.layouts = 0;
        box.InitProperties();
        EXPECT_EQ(box.Height(), 330);
        EXPECT_EQ(view.layouts, 1) << place.height;
    }
    box.setObserver(nullptr);
    EXPECT_EQ(stored(box),
              (PropertyBag{
                  {"BackColor", 0xFFFFFF}, {"Font", Font{.name = "Verdana"}}, {"Text", "linkin"}}));
    box.ReadProperties({}, {.name = "Ambient"});
    EXPECT_EQ(box.Text(), "Text1");
    EXPECT_EQ(box.BackColor(), 0x80000005U);
    EXPECT_EQ(box.ForeColor(), 0x80000008U);
    EXPECT_EQ(stored(box), (PropertyBag{{"Font", Font{.name = "Ambient"}}})) << "no defaults";
}

TEST_F(XPTextBoxTest, ReadingMapsAnAlignmentAndRefusesWhatCannotBe) {
    for (const std::int32_t alignment : {3, 70'000, -1, -65'535}) {
        box.ReadProperties({{"Alignment", alignment}, {"DataFields", "after"}});
        EXPECT_EQ(box.Alignment(), 0) << alignment;
        EXPECT_EQ(box.DataFields(), "after");
        box.DataFields("");
    }
    const PropertyBag bags[] = {
        {{"MaxLength", -1}},  {{"SelStart", -1}},       {{"Text", 5}},
        {{"Enabled", "yes"}}, {{"BackColor", "white"}}, {{"Font", "Arial"}}};
    for (const PropertyBag& wrong : bags) EXPECT_THROW(box.ReadProperties(wrong), RuntimeFailure);
}

}  // namespace
}  // namespace velvox
