// Loading of the window, the site list, and the simple click handlers.
#include "app/form1/form1.h"
#include "app/form1/given_address.h"
#include "app/form1/home_page.h"
#include "base/join.h"

namespace velvox {
namespace {

constexpr OleColour red = 255;
constexpr OleColour blue = 0xFF0000;
constexpr std::size_t leadingBlanks = 128;

}  // namespace

void Form1::Form_Load() {
    for (const Site& site : sites_)
        if (site.catcher) ds.AddItem(site.entry);
    ds.ListIndex(0);
    web.Navigate("about:blank");
    NewsText = std::string(leadingBlanks, ' ') + "| Loading News....  |";
}

void Form1::ds_Click() {
    for (const Site& site : sites_)
        if (ds.Text() == site.entry) vd.Caption(join({site.server, site.examplePath}));
}

void Form1::vd_Click() {
    linkin.Text(vd.Caption());
}

void Form1::takeAddress(std::string_view text) {
    const std::string address = givenAddress(text);
    if (address.empty()) return;
    if (outer.Visible()) {
        if (!isButton1.Enabled()) return;
        isButton1_Click();
    }
    linkin.Text(address);
}

void Form1::Label12_Click() {
    desktop_.openAddress(homePage);
}

void Form1::isButton1_Click() {
    web.Navigate("about:blank");
    outer.Visible(false);
}

void Form1::Timer1_Timer() {
    Label12.ForeColor(Label12.ForeColor() == red ? blue : red);
}

}  // namespace velvox
