#include "app/form1/form1_design.h"

#include <algorithm>
#include <string>
#include <vector>

#include "app/form1/home_page.h"
#include "app/form1/skin_palette.h"
#include "app/version.h"
#include "base/runtime_failure.h"

namespace velvox {
namespace {

using enum ControlKind;
using enum Shown;

LabelText plain(std::string_view caption) {
    return {caption, palette::text, {}};
}
LabelText heading(std::string_view caption) {
    return {caption, palette::text, {.bold = true}};
}
LabelText quiet(std::string_view caption) {
    return {caption, palette::quietText, {}};
}
LabelText link(std::string_view caption) {
    return {caption, palette::linkText, {.underline = true}};
}
LabelText title(std::string_view caption) {
    return {caption, palette::titleText, {.points = 9, .bold = true}};
}

// The stored properties that all buttons share. The keys are in lower case, as containers store
// them.
PropertyBag button(std::string_view caption, std::initializer_list<PropertyBag::Entry> more = {}) {
    PropertyBag bag{{"style", 5},
                    {"caption", std::string(caption)},
                    {"iconalign", 1},
                    {"inonthemestyle", 0},
                    {"usecustomcolors", true},
                    {"backcolor", palette::button},
                    {"highlightcolor", palette::button},
                    {"tooltiptitle", ""},
                    {"tooltipicon", 0},
                    {"tooltiptype", 0}};
    for (const PropertyBag::Entry& entry : more) bag.write(entry.key, entry.value);
    return bag;
}

PropertyBag downloadButton() {
    return button("Download", {{"buttontype", 1}});
}

PropertyBag closeButton() {
    return button("Close", {{"enabled", false}, {"fontcolor", 0x008000}});
}

constexpr std::string_view form = "Form1";
constexpr std::string_view product = "Velvox " VELVOX_VERSION;

// Captions have their left edge at 240 twips, and the controls that they name at 1800. The right
// margin starts at 7215.
const std::vector<ControlDesign>& controls() {
    static const std::vector<ControlDesign> rows = {
        // The client area: 497 x 297 pixels at 96 dots per inch.
        {form, Form, {}, {0, 0, 7455, 4455}},

        // Title bar. Form_Resize stretches skinbar and moves topendskin to the right edge. The quit
        // button is centred vertically.
        {"skinicon", TitlePiece, form, {0, 0, 480, 510}},
        {"skinbar", TitlePiece, form, {480, 0, 6435, 510}},
        {"topendskin", Box, form, {6915, 0, 540, 510}},
        {"isButton2", Button, "topendskin", {120, 100, 300, 300}, Always, {}, button("X")},
        {"Label5", DragHandle, form, {540, 135, 3000, 270}, Always, title(product)},

        // Input: address, site and example.
        {"Label1", Text, form, {240, 735, 4500, 240}, Covered, heading("Paste Your URL Below : ")},
        {"linkin", Address, form, {240, 1020, 5520, 375}, Covered, {}, {{"text", std::string()}}},
        {"UniXPButton1", Button, form, {5880, 1020, 1335, 375}, Covered, {}, downloadButton()},
        {"Label6", Text, form, {240, 1875, 1500, 240}, Covered, plain("Download From : ")},
        {"ds", List, form, {1800, 1830, 5415, 330}, Covered},
        {"Label7", Text, form, {240, 2685, 1500, 240}, Covered, plain("Example : ")},
        {"vd", Link, form, {1800, 2685, 5415, 450}, Covered, link("")},

        // Home page and news.
        {"Label11", Text, form, {240, 3600, 1500, 240}, Covered, quiet("Please Visit ")},
        {"Label12", Link, form, {1800, 3600, 2250, 240}, Covered, link(homePage)},
        {"Label13", Text, form, {4080, 3600, 3135, 240}, Covered, quiet("for forum and updates")},
        {"Picture1", Box, form, {15, 4155, 7425, 285}},
        {"Label4", Strip, "Picture1", {225, 30, 6975, 225}, Always, quiet("")},

        // The result area covers everything between the title bar and the news while it is shown.
        // The skin draws a panel in it, 60 twips below its top and 90 twips inside its right and
        // bottom edges.
        {"outer", Box, form, {120, 4200, 7305, 3495}, Result},
        {"Label3", Text, "outer", {180, 210, 2400, 240}, Always, heading("Status")},
        {"output", Pane, "outer", {180, 540, 4200, 2685}},
        {"Label2", Text, "outer", {4530, 210, 1350, 240}, Always, heading("Preview")},
        {"web", Preview, "outer", {4530, 540, 2505, 2685}},
        {"isButton1", Button, "outer", {5940, 150, 1095, 330}, Always, {}, closeButton()},
    };
    return rows;
}

// Timer1 makes the home page link blink; the other timers drive the news ticker. Timer4 polls with
// an interval of 1 ms, which WindowTimer raises to its shortest period.
constexpr TimerDesign timers[] = {
    {"Timer1", 500, true},  {"Timer4", 1, false},     {"Timer5", 100, true},
    {"Timer6", 1000, true}, {"Timer7", 10000, false},
};

// Etched separators, each a dark line and a light line directly below it.
constexpr Line lines[] = {
    {"Line1", 240, 1605, 7215, 1605},  {"Line2", 240, 1620, 7215, 1620},
    {"Line3", 1800, 2385, 7215, 2385}, {"Line4", 1800, 2400, 7215, 2400},
    {"Line5", 240, 3285, 7215, 3285},  {"Line6", 240, 3300, 7215, 3300},
    {"Line7", 15, 4125, 7440, 4125},   {"Line8", 15, 4140, 7440, 4140},
    {"Line9", 15, 510, 7440, 510},     {"Line10", 15, 525, 7440, 525},
};

}  // namespace

const std::span<const TimerDesign> timerDesigns = timers;
const std::span<const Line> lineDesigns = lines;

std::span<const ControlDesign> controlDesigns() {
    return controls();
}

const ControlDesign& designOf(std::string_view name) {
    const auto row = std::ranges::find(controls(), name, &ControlDesign::name);
    if (row == controls().end())
        throw RuntimeFailure(Fault::InvalidCall, "The form has no " + std::string(name));
    return *row;
}

ControlId controlId(std::string_view name) {
    constexpr int firstId = 100;
    return static_cast<ControlId>(firstId + (&designOf(name) - controls().data()));
}

}  // namespace velvox
