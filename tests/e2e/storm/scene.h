// What the driver sees of the main window at one moment.
#pragma once

#include <map>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "app/form1/form1_design.h"
#include "tools/drive/client/driver.h"
#include "tools/drive/client/input.h"

namespace velvox::e2e {

using namespace velvox::drive;

struct Scene {
    struct Control {
        bool visible = false;
        bool enabled = false;
        Bounds bounds;
    };

    bool visible = false;
    bool enabled = false;
    bool iconic = false;
    Bounds bounds;
    bool menu = false;    ///< a menu is open
    bool moving = false;  ///< the window is being moved by keys
    bool list = false;    ///< the site list is dropped down
    bool capture = false;
    int focus = 0;        ///< identifier of the focused window
    int focusParent = 0;  ///< and of its parent
    std::string box;      ///< title and text of a message box
    std::map<int, Control> controls;
    std::string html;             ///< of the pane, while it is shown
    std::set<std::string> links;  ///< addresses of the links in it

    const Control& operator[](ControlId id) const { return controls.at(static_cast<int>(id)); }
    /// The message box of an address that matches nothing is shown.
    bool refuses() const { return box.find("Please Enter A Valid URL...") != std::string::npos; }
    bool areaShown() const { return (*this)[controlId("outer")].visible; }
    bool closable() const { return (*this)[controlId("isButton1")].enabled; }
    bool hasFocus(ControlId id) const {
        return focus == static_cast<int>(id) || focusParent == static_cast<int>(id);
    }
    /// Whether a point on the screen lies on a control that is shown.
    bool shows(ControlId id, Point at) const;
    bool running() const { return areaShown() && !closable(); }
    /// But for what moves by itself.
    bool sameMode(const Scene& other) const {
        const auto mode = [](const Scene& s) {
            return std::tuple(s.visible, s.enabled, s.iconic, s.menu, s.moving, s.list, s.capture,
                              s.focus, s.focusParent, s.box, s.areaShown(), s.closable());
        };
        return mode(*this) == mode(other);
    }
    /// Nothing stands between the user and the window.
    bool clear() const { return !menu && !moving && !list && !capture && !iconic && box.empty(); }
};

/// What of it a report needs, in a line.
std::string describe(const Scene& scene);

/// From the driver's `look`. Throws std::runtime_error for one it cannot read.
Scene parseScene(const std::string& look);

/// The addresses of the links in the HTML of the pane.
std::set<std::string> linksOf(const std::string& html);

/// The same address, however it is escaped.
std::string unescapedAddress(const std::string& address);

}  // namespace velvox::e2e
