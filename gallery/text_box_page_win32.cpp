#include "gallery/text_box_page_win32.h"

#include <cstdio>
#include <string>

#include "base/twips.h"

namespace velvox {
namespace {

/// Lengths in pixels of a 96 dpi screen.
constexpr int left = 14, top = 14, nameWidth = 96, boxLeft = left + nameWidth, boxWidth = 130;
constexpr int boxHeight = 25, rowStep = 32, textDrop = 6, noteLeft = boxLeft + boxWidth + 12;
constexpr int eventsLeft = 540;

struct Sample {
    const char* property;
    const char* text;
    const char* note;
    void (*set)(XPTextBox& box);
};

Font largeFont() {
    Font font;
    font.name = "Arial";
    font.points = 11;
    font.bold = font.italic = font.underline = true;
    return font;
}

constexpr Sample samples[] = {
    {"Text", "as it was set", "Change is raised for each new text", [](XPTextBox&) {}},
    {"Alignment 0", "left", "and stored values that are not known",
     [](XPTextBox& box) { box.Alignment(0); }},
    {"Alignment 1", "right", "", [](XPTextBox& box) { box.Alignment(1); }},
    {"Alignment 2", "centred", "", [](XPTextBox& box) { box.Alignment(2); }},
    {"Enabled", "disabled", "False: takes neither mouse nor keys",
     [](XPTextBox& box) { box.Enabled(false); }},
    {"Locked", "read, but not changed", "True: can be selected and copied",
     [](XPTextBox& box) { box.Locked(true); }},
    {"MaxLength", "8 chars.", "8: no room for more", [](XPTextBox& box) { box.MaxLength(8); }},
    {"PasswordChar", "secret", "*", [](XPTextBox& box) { box.PasswordChar("*"); }},
    {"Font", "Arial 11", "bold, italic, underlined", [](XPTextBox& box) { box.Font(largeFont()); }},
    {"Colours", "ink on paper", "BackColor and ForeColor",
     [](XPTextBox& box) {
         box.BackColor(rgb(0xFF, 0xF6, 0xDC));
         box.ForeColor(rgb(0x1F, 0x2A, 0x44));
     }},
    {"ToolTipText", "rest the pointer here", "shows after a moment",
     [](XPTextBox& box) { box.ToolTipText("The text of the tip."); }},
    {"DataFields", "a record's field", "stored with the box, for its host",
     [](XPTextBox& box) { box.DataFields("title"); }},
};

}  // namespace

TextBoxPage::~TextBoxPage() {
    windows_.clear();
}

void TextBoxPage::create(HWND parent) {
    sheet_.emplace(parent);
    layOutSamples();
    sheet_->write({eventsLeft, top, 200, 0}, "Events, newest first", true);
    const RECT list{scaled(eventsLeft), scaled(top + 20), scaled(pageWidth - left),
                    scaled(pageHeight - left)};
    events_.create(sheet_->handle(), list);
}

XPTextBox& TextBoxPage::add(const Bounds& at, std::string_view name, std::string_view text) {
    XPTextBox& box = boxes_.emplace_back(name, twipsPerInch / screenDpi());
    box.Move(inTwips(at));
    box.Text(text);
    // The text is black, because the box's background is white in every scheme.
    box.ForeColor(rgb(0, 0, 0));
    return box;
}

void TextBoxPage::layOutSamples() {
    int y = top;
    for (const Sample& sample : samples) {
        sheet_->write({left, y + textDrop, nameWidth, 0}, sample.property);
        sheet_->write({noteLeft, y + textDrop, eventsLeft - noteLeft - 12, 0}, sample.note);
        XPTextBox& box = add({boxLeft, y, boxWidth, boxHeight}, sample.property, sample.text);
        sample.set(box);
        listen(box);
        windows_.emplace_back(box, sheet_->handle(), static_cast<int>(windows_.size()) + 100,
                              colours_);
        y += rowStep;
    }
    layOutSelection(y);
}

void TextBoxPage::layOutSelection(int y) {
    sheet_->write({left, y + textDrop, nameWidth, 0}, "Selection");
    XPTextBox& box = add({boxLeft, y, boxWidth, boxHeight}, "Selection", "12.5 and words");
    listen(box);
    windows_.emplace_back(box, sheet_->handle(), static_cast<int>(windows_.size()) + 100, colours_);
    struct Act {
        const char* caption;
        std::function<void()> click;
    };
    const Act acts[] = {{"Focus", [&box] { box.Focus(); }},
                        {"Select 4",
                         [&box] {
                             box.MyTxt.SetFocus();
                             box.SelStart(0);
                             box.SelLength(4);
                         }},
                        {"SelText", [&box] { box.SelText("[new]"); }},
                        {"GetValue", [this, &box] {
                             char number[32];
                             std::snprintf(number, sizeof number, "%g", box.GetValue());
                             events_.add(box.Name(), "GetValue", number);
                         }}};
    int x = noteLeft;
    for (const Act& act : acts) {
        isButton& button = sheet_->add({x, y, 64, boxHeight}, act.caption);
        button.Caption(act.caption);
        button.Style(5);
        button.Click = act.click;
        sheet_->show(button);
        x += 68;
    }
}

void TextBoxPage::listen(XPTextBox& box) {
    const auto add = [this, &box](std::string_view event, std::string_view detail = {}) {
        events_.add(box.Name(), event, detail);
    };
    box.Change = [add, &box] { add("Change", box.Text()); };
    box.Click = [add] { add("Click"); };
    box.DblClick = [add] { add("DblClick"); };
    box.KeyPress = [add](std::int16_t& keyAscii) { add("KeyPress", std::to_string(keyAscii)); };
    box.MouseMove = [add](std::int16_t button, std::int16_t shift, float, float) {
        add("MouseMove", std::to_string(button) + ", " + std::to_string(shift));
    };
}

}  // namespace velvox
