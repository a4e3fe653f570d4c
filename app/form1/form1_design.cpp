#include "app/form1/form1_design.h"

#include <algorithm>
#include <string>

#include "app/form1/home_page.h"
#include "app/form1/skin_palette.h"
#include "app/version.h"
#include "base/runtime_failure.h"

namespace velvox {
namespace {

constexpr OleColour textColour = palette::text;
constexpr OleColour quietColour = palette::quietText;
constexpr OleColour titleColour = palette::titleText;
constexpr OleColour linkColour = palette::linkText;

const Font normalFont{};
const Font boldFont{.bold = true};
const Font linkFont{.underline = true};
const Font titleFont{.points = 9, .bold = true};

// One grid: captions start at 240, what they name at 1800, and everything ends at 7215.
const ControlDesign controls[] = {
    // The client area: 497 x 297 pixels at 96 dots per inch.
    {"Form1", {0, 0, 7455, 4455}},

    // Title bar; Form_Resize stretches skinbar and moves topendskin to the right edge. The quit
    // button rests in the middle of its height.
    {"skinicon", {0, 0, 480, 510}},
    {"skinbar", {480, 0, 6435, 510}},
    {"topendskin", {6915, 0, 540, 510}},
    {"isButton2", {120, 100, 300, 300}},
    {"Label5", {540, 135, 3000, 270}, "Velvox " VELVOX_VERSION, true, titleColour, titleFont},

    // Asking: address, site and example.
    {"Label1", {240, 735, 4500, 240}, "Paste Your URL Below : ", true, textColour, boldFont},
    {"linkin", {240, 1020, 5520, 375}},
    {"UniXPButton1", {5880, 1020, 1335, 375}},
    {"Label6", {240, 1875, 1500, 240}, "Download From : ", true, textColour, normalFont},
    {"ds", {1800, 1830, 5415, 330}},
    {"Label7", {240, 2685, 1500, 240}, "Example : ", true, textColour, normalFont},
    {"vd", {1800, 2685, 5415, 450}, "", true, linkColour, linkFont},

    // Home page and news.
    {"Label11", {240, 3600, 1500, 240}, "Please Visit ", true, quietColour, normalFont},
    {"Label12", {1800, 3600, 2250, 240}, homePage, true, linkColour, linkFont},
    {"Label13", {4080, 3600, 3135, 240}, "for forum and updates", true, quietColour, normalFont},
    {"Picture1", {15, 4155, 7425, 285}},
    {"Label4", {225, 30, 6975, 225}, "", true, quietColour, normalFont},

    // The result area covers everything between title bar and news while it is shown. The skin
    // draws its panel 60 twips below its top and 90 before its right and lower edges.
    {"outer", {120, 4200, 7305, 3495}, "", false},
    {"Label3", {180, 210, 2400, 240}, "Status", true, textColour, boldFont},
    {"output", {180, 540, 4200, 2685}},
    {"Label2", {4530, 210, 1350, 240}, "Preview", true, textColour, boldFont},
    {"web", {4530, 540, 2505, 2685}},
    {"isButton1", {5940, 150, 1095, 330}},
};

// The host stores the keys in lower case.
const struct {
    std::string_view name;
    PropertyBag bag;
} stored[] = {
    {"linkin", {{"text", std::string()}}},
    {"UniXPButton1",
     {{"style", 5},
      {"caption", "Download"},
      {"iconalign", 1},
      {"inonthemestyle", 0},
      {"usecustomcolors", true},
      {"backcolor", palette::button},
      {"highlightcolor", palette::button},
      {"tooltiptitle", ""},
      {"tooltipicon", 0},
      {"tooltiptype", 0},
      {"buttontype", 1}}},
    {"isButton1",
     {{"style", 5},
      {"caption", "Close"},
      {"iconalign", 1},
      {"inonthemestyle", 0},
      {"enabled", false},
      {"usecustomcolors", true},
      {"backcolor", palette::button},
      {"highlightcolor", palette::button},
      {"fontcolor", 0x008000},
      {"tooltiptitle", ""},
      {"tooltipicon", 0},
      {"tooltiptype", 0}}},
    {"isButton2",
     {{"style", 5},
      {"caption", "X"},
      {"iconalign", 1},
      {"inonthemestyle", 0},
      {"usecustomcolors", true},
      {"backcolor", palette::button},
      {"highlightcolor", palette::button},
      {"tooltiptitle", ""},
      {"tooltipicon", 0},
      {"tooltiptype", 0}}},
};

// Timer1 blinks the home link; the others drive the news ticker. Windows rounds the 1 ms poll up
// to its own shortest period.
constexpr TimerDesign timers[] = {
    {"Timer1", 500, true},  {"Timer4", 1, false},     {"Timer5", 100, true},
    {"Timer6", 1000, true}, {"Timer7", 10000, false},
};

// Etched separators: a dark line over a light one. The dark ones stand on pixels of the form
// 4n + 3, where the pairs touch at every usual resolution.
constexpr Line lines[] = {
    {"Line1", 240, 1605, 7215, 1605},  {"Line2", 240, 1620, 7215, 1620},
    {"Line3", 1800, 2385, 7215, 2385}, {"Line4", 1800, 2400, 7215, 2400},
    {"Line5", 240, 3285, 7215, 3285},  {"Line6", 240, 3300, 7215, 3300},
    {"Line7", 15, 4125, 7440, 4125},   {"Line8", 15, 4140, 7440, 4140},
    {"Line9", 15, 510, 7440, 510},     {"Line10", 15, 525, 7440, 525},
};

template <class Rows>
const auto& rowOf(const Rows& rows, std::string_view name) {
    const auto found = std::find_if(std::begin(rows), std::end(rows),
                                    [&](const auto& row) { return row.name == name; });
    if (found == std::end(rows))
        throw RuntimeFailure(Fault::InvalidCall, "The form has no " + std::string(name));
    return *found;
}

}  // namespace

const std::span<const TimerDesign> timerDesigns = timers;
const std::span<const Line> lineDesigns = lines;

const ControlDesign& designOf(std::string_view name) {
    return rowOf(controls, name);
}

const PropertyBag& storedProperties(std::string_view name) {
    return rowOf(stored, name).bag;
}

}  // namespace velvox
