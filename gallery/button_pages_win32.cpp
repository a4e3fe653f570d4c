#include "gallery/button_pages_win32.h"

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "app/form1/form1_design.h"
#include "base/twips.h"
#include "gallery/sheet_win32.h"

namespace velvox {
namespace {

constexpr OleColour polishedGrey = 0xE0E0E0;

constexpr const char* styleNames[] = {"0 Edged",   "1 Thin",      "2 Tool",  "3 Solid",
                                      "4 Flat",    "5 Polished",  "6 Theme", "7 Glass",
                                      "8 Brushed", "9 Porcelain", "10 Pill"};
constexpr int styleCount = std::size(styleNames);

// A gallery page that consists of one Sheet. The function `layOut` fills the sheet.
class SheetPage : public Page {
 public:
    SheetPage(std::string_view title, std::function<void(Sheet&)> layOut)
        : title_(title), layOut_(std::move(layOut)) {}

    std::string_view title() const override { return title_; }
    void create(HWND parent) override {
        sheet_ = std::make_unique<Sheet>(parent);
        layOut_(*sheet_);
    }

 private:
    std::string title_;
    std::function<void(Sheet&)> layOut_;
    std::unique_ptr<Sheet> sheet_;
};

std::unique_ptr<Page> makePage(std::string_view title, std::function<void(Sheet&)> layOut) {
    return std::make_unique<SheetPage>(title, std::move(layOut));
}

void colourLikeMainWindow(isButton& button) {
    button.UseCustomColors(true);
    button.BackColor(polishedGrey);
    button.HighlightColor(polishedGrey);
    // The text is black, because the face is light even in a scheme with light system text.
    button.FontColor(rgb(0, 0, 0));
    button.FontHighlightColor(rgb(0, 0, 0));
}

// The look that `button` has in `state`.
ButtonLook lookOf(const isButton& button, ButtonState state) {
    ButtonLook look = button.look();
    look.state = state;
    return look;
}

namespace grid {
constexpr int left = 14, top = 14, name = 88, cellWidth = 86, cellHeight = 26;
constexpr int columnStep = 98, headerStep = 26, textDrop = 6;
constexpr int rowStep = std::min(37, (pageHeight - top - headerStep) / styleCount);
}  // namespace grid

void layOutStyles(Sheet& sheet, ButtonColouring colouring) {
    using namespace grid;
    const char* const columns[] = {"Live",     "Normal",  "Hot",    "Pressed",
                                   "Disabled", "Focused", "Toggled"};
    const auto columnAt = [](int column) { return left + name + column * columnStep; };
    for (int column = 0; column < 7; ++column)
        sheet.write({columnAt(column), top, cellWidth, 0}, columns[column], true, true);
    for (int style = 0; style < styleCount; ++style) {
        const int y = top + headerStep + style * rowStep;
        sheet.write({left, y + textDrop, name, 0}, styleNames[style]);
        isButton& live = sheet.add({columnAt(0), y, cellWidth, cellHeight}, "Download");
        live.Caption("Download");
        live.Style(style);
        if (colouring == ButtonColouring::Custom) colourLikeMainWindow(live);
        sheet.show(live);
        const auto still = [&](int column, const ButtonLook& look) {
            sheet.draw({columnAt(column), y, cellWidth, cellHeight}, look);
        };
        still(1, lookOf(live, ButtonState::Normal));
        still(2, lookOf(live, ButtonState::Hot));
        still(3, lookOf(live, ButtonState::Pressed));
        still(4, lookOf(live, ButtonState::Disabled));
        ButtonLook focused = lookOf(live, ButtonState::Normal);
        focused.focused = focused.focusShown = true;
        still(5, focused);
        // A toggled button is drawn pressed, and it has the focus after the click that toggled it.
        ButtonLook toggled = lookOf(live, ButtonState::Pressed);
        toggled.focused = toggled.focusShown = true;
        still(6, toggled);
    }
}

void layOutAlignments(Sheet& sheet) {
    constexpr int x = 14, width = 132, height = 58, stepX = 146, stepY = 74;
    const char* const names[] = {"0 centre", "1 left", "2 right", "3 top", "4 bottom"};
    const auto icon = Sheet::sampleIcon(reinterpret_cast<LPCWSTR>(IDI_INFORMATION));
    sheet.write({x, 12, 600, 0}, "Icon alignment, caption in the middle or away from it", true);
    const auto sample = [&](int column, int y, int style, int iconAlign, int captionAlign) {
        isButton& button = sheet.add({x + column * stepX, y, width, height}, "b",
                                     {{"CaptionAlign", captionAlign}});
        button.Caption(names[iconAlign]);
        button.Style(style);
        if (style == 5) colourLikeMainWindow(button);
        button.Icon(icon);
        button.IconSize(scaled(16));
        button.IconAlign(iconAlign);
        return &button;
    };
    // Caption alignment for each icon alignment: the side opposite to the icon.
    constexpr int opposite[] = {4, 0, 0, 4, 3};
    for (int align = 0; align < 5; ++align)
        sheet.show(*sample(align, 34, 5, align, opposite[align]));
    sheet.write({x, 34 + stepY, 600, 0}, "Caption alignment", true);
    for (int align = 0; align < 5; ++align) {
        isButton* button = sample(align, 56 + stepY, 7, 0, align);
        button->Icon(nullptr);
        button->Caption(names[align]);
        sheet.show(*button);
    }
    sheet.write({x, 56 + 2 * stepY, 700, 0},
                "Icon in the states: normal, hot (style 4 lifts it over its shadow), pressed, "
                "disabled, large",
                true);
    const ButtonState states[] = {ButtonState::Normal, ButtonState::Hot, ButtonState::Pressed,
                                  ButtonState::Disabled, ButtonState::Normal};
    for (int row = 0; row < 2; ++row) {
        for (int column = 0; column < 5; ++column) {
            const int y = 78 + (2 + row) * stepY;
            isButton* button = sample(column, y, row == 0 ? 4 : 5, 1, column == 4 ? 2 : 0);
            button->Caption("Download");
            if (column == 4) button->IconSize(scaled(32));
            sheet.draw({x + column * stepX, y, width, height}, lookOf(*button, states[column]));
        }
    }
}

void layOutToolTips(Sheet& sheet) {
    struct Tip {
        const char* name;
        const char* title;
        int icon;
        int type;
        OleColour back;
        OleColour fore;
    };
    constexpr Tip tips[] = {
        {"Plain", "", 0, 0, systemColour(24), systemColour(23)},
        {"Balloon", "", 0, 1, systemColour(24), systemColour(23)},
        {"Title", "Download", 0, 1, systemColour(24), systemColour(23)},
        {"Information", "Download", 1, 1, systemColour(24), systemColour(23)},
        {"Warning", "Download", 2, 1, systemColour(24), systemColour(23)},
        {"Error", "Download", 3, 0, systemColour(24), systemColour(23)},
        {"Colours", "Download", 1, 1, 0x502000, 0xFFFFFF},
    };
    sheet.write({14, 14, 700, 0}, "Rest the pointer on a button to see its tip.", true);
    int y = 44;
    for (const Tip& tip : tips) {
        isButton& button = sheet.add({14, y, 110, 28}, tip.name);
        button.Caption(tip.name);
        button.Style(5);
        colourLikeMainWindow(button);
        button.ToolTip("Fetches the page and lists its links.");
        button.ToolTipTitle(tip.title);
        button.ToolTipIcon(tip.icon);
        button.ToolTipType(tip.type);
        button.ToolTipBackColor(tip.back);
        button.ToolTipForeColor(tip.fore);
        sheet.show(button);
        std::string text = tip.type == 1 ? "Balloon" : "Plain box";
        if (*tip.title) text += ", title \"" + std::string(tip.title) + "\"";
        text += ", icon " + std::to_string(tip.icon);
        sheet.write({140, y + 7, 400, 0}, text);
        y += 40;
    }
}

void layOutDesignTime(Sheet& sheet) {
    sheet.write({14, 14, 700, 0}, "While a form is designed every style but 5 shows its hot look.",
                true);
    ButtonAmbient design;
    design.userMode = false;
    for (int style = 0; style < styleCount; ++style) {
        const int x = 14 + style % 4 * 150;
        const int y = 44 + style / 4 * 62;
        sheet.write({x, y, 140, 0}, styleNames[style]);
        isButton& button = sheet.add({x, y + 20, 126, 30}, "isButton1", {}, design);
        button.Caption("isButton1");
        button.Style(style);
        sheet.show(button);
    }
}

void layOutMainWindow(Sheet& sheet) {
    sheet.write({14, 14, 700, 0}, "The main window's buttons, live", true);
    sheet.write({14, 34, 700, 0}, "Press Download to enable Close, and X for the About box.");
    struct Sample {
        isButton* button;
        Bounds place;
    };
    std::vector<Sample> samples;
    for (const ControlDesign& design : controlDesigns()) {
        if (design.kind != ControlKind::Button) continue;
        const Bounds place = {14 + static_cast<int>(samples.size()) * 112, 64,
                              design.bounds.width / designTwipsPerPixel,
                              design.bounds.height / designTwipsPerPixel};
        samples.push_back({&sheet.add(place, design), place});
        sheet.show(*samples.back().button);
    }
    const auto named = [&](std::string_view name) {
        return std::ranges::find(samples, name, [](const Sample& s) { return s.button->Name(); })
            ->button;
    };
    named("UniXPButton1")->Click = [close = named("isButton1")] {
        close->Enabled(!close->Enabled());
    };
    named("isButton2")->Click = [x = named("isButton2")] { x->About(); };

    sheet.write({14, 112, 700, 0}, "In every state", true);
    struct Pose {
        const char* name;
        ButtonState state;
        bool focusShown;
        bool cue;
    };
    constexpr Pose poses[] = {
        {"Normal", ButtonState::Normal, false, false},
        {"Hot", ButtonState::Hot, false, false},
        {"Pressed", ButtonState::Pressed, false, false},
        {"Disabled", ButtonState::Disabled, false, false},
        {"Focus ring", ButtonState::Normal, true, false},
        {"Keyboard", ButtonState::Normal, false, true},
    };
    int column = 0;
    for (const Pose& pose : poses) {
        const int x = 14 + column++ * 112;
        sheet.write({x, 136, 97, 0}, pose.name);
        int y = 158;
        for (const Sample& sample : samples) {
            ButtonLook look = lookOf(*sample.button, pose.state);
            look.focused = pose.focusShown || pose.cue;
            look.focusShown = pose.focusShown;
            Bounds at = sample.place;
            at.left = x;
            at.top = y;
            y += 38;
            sheet.draw(at, look, pose.cue);
        }
    }
}

}  // namespace

std::unique_ptr<Page> makeStylesPage(ButtonColouring colouring) {
    return makePage(colouring == ButtonColouring::System ? "Button styles" : "Custom colours",
                    [colouring](Sheet& sheet) { layOutStyles(sheet, colouring); });
}
std::unique_ptr<Page> makeAlignmentPage() {
    return makePage("Icons and captions", layOutAlignments);
}
std::unique_ptr<Page> makeToolTipPage() {
    return makePage("Tool tips", layOutToolTips);
}
std::unique_ptr<Page> makeDesignTimePage() {
    return makePage("Design time", layOutDesignTime);
}
std::unique_ptr<Page> makeMainWindowPage() {
    return makePage("Main window's buttons", layOutMainWindow);
}

}  // namespace velvox
