#include "app/form1_design.h"

#include <algorithm>
#include <string>

#include "app/hosts.h"
#include "base/runtime_failure.h"

namespace velvox {
namespace {

constexpr OleColour black = rgb(0, 0, 0);
constexpr OleColour titleColour = rgb(255, 255, 255);
constexpr OleColour quietColour = rgb(90, 98, 110);
constexpr OleColour linkColour = rgb(0, 0, 255);

const Font normalFont{};
const Font boldFont{.bold = true};
const Font linkFont{.underline = true};
const Font titleFont{.points = 9, .bold = true};

const ControlDesign controls[] = {
    // The client area: 497 x 297 pixels at 96 dots per inch.
    {"Form1", {0, 0, 7455, 4455}},

    // Title bar; Form_Resize stretches skinbar and moves topendskin to the right edge.
    {"skinicon", {0, 0, 480, 450}},
    {"skinbar", {480, 0, 6435, 450}},
    {"topendskin", {6915, 0, 540, 450}},
    {"isButton2", {120, 100, 300, 300}},
    {"Label5", {540, 105, 3000, 270}, "Velvox 1.00", true, titleColour, titleFont},

    // Asking: address, site and example.
    {"Label1", {240, 705, 4500, 240}, "Paste Your URL Below : ", true, black, boldFont},
    {"linkin", {240, 960, 5460, 345}},
    {"UniXPButton1", {5820, 945, 1395, 375}},
    {"Label6", {240, 1620, 1395, 240}, "Download From : ", true, black, normalFont},
    {"ds", {1695, 1575, 3285, 330}},
    {"Label7", {240, 2085, 1395, 240}, "Example : ", true, black, normalFont},
    {"vd", {1695, 2085, 5520, 450}, "", true, linkColour, linkFont},

    // Home page and news.
    {"Label11", {240, 3525, 990, 240}, "Please Visit ", true, quietColour, normalFont},
    {"Label12", {1230, 3525, 2250, 240}, hosts::home, true, linkColour, linkFont},
    {"Label13", {3480, 3525, 2500, 240}, "for forum and updates", true, quietColour, normalFont},
    {"Picture1", {120, 4140, 7215, 255}},
    {"Label4", {60, 15, 7095, 225}, "", true, quietColour, normalFont},

    // The result area covers everything between title bar and news while it is shown.
    {"outer", {120, 4200, 7305, 3495}, "", false},
    {"Label3", {120, 90, 2400, 240}, "Status", true, black, boldFont},
    {"output", {120, 390, 4230, 2985}},
    {"Label2", {4470, 90, 1500, 240}, "Preview", true, black, boldFont},
    {"web", {4470, 390, 2715, 2985}},
    {"isButton1", {6090, 30, 1095, 315}},
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
      {"backcolor", 0xE0E0E0},
      {"highlightcolor", 0xE0E0E0},
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
      {"backcolor", 0xE0E0E0},
      {"highlightcolor", 0xE0E0E0},
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
      {"backcolor", 0xE0E0E0},
      {"highlightcolor", 0xE0E0E0},
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

// Etched separators: a dark line over a light one.
constexpr Line lines[] = {
    {"Line1", 240, 1455, 7215, 1455}, {"Line2", 240, 1470, 7215, 1470},
    {"Line3", 240, 2610, 7215, 2610}, {"Line4", 240, 2625, 7215, 2625},
    {"Line5", 240, 3420, 7215, 3420}, {"Line6", 240, 3435, 7215, 3435},
    {"Line7", 120, 4095, 7335, 4095}, {"Line8", 120, 4110, 7335, 4110},
    {"Line9", 0, 450, 7455, 450},     {"Line10", 0, 465, 7455, 465},
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
