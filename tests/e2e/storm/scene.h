// The state of the main window at one moment, as the driver reports it.
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
    int focusParent = 0;  ///< identifier of the focused window's parent
    std::string box;      ///< title and text of a message box
    std::map<int, Control> controls;
    std::string html;             ///< the pane's HTML, while the pane is shown
    std::set<std::string> links;  ///< addresses of the links in the HTML

    const Control& operator[](ControlId id) const { return controls.at(static_cast<int>(id)); }
    /// Whether the message box for an address that matches no site is shown.
    bool refuses() const { return box.find("Please Enter A Valid URL...") != std::string::npos; }
    bool areaShown() const { return (*this)[controlId("outer")].visible; }
    bool closable() const { return (*this)[controlId("isButton1")].enabled; }
    bool hasFocus(ControlId id) const {
        return focus == static_cast<int>(id) || focusParent == static_cast<int>(id);
    }
    /// Whether a point on the screen lies on a control that is shown.
    bool shows(ControlId id, Point at) const;
    bool running() const { return areaShown() && !closable(); }
    /// Compares the state except what changes by itself, such as the pane's text.
    bool sameMode(const Scene& other) const {
        const auto mode = [](const Scene& s) {
            return std::tuple(s.visible, s.enabled, s.iconic, s.menu, s.moving, s.list, s.capture,
                              s.focus, s.focusParent, s.box, s.areaShown(), s.closable());
        };
        return mode(*this) == mode(other);
    }
    /// Whether nothing comes between the user's input and the window.
    bool clear() const { return !menu && !moving && !list && !capture && !iconic && box.empty(); }
};

/// Describes a scene for a report, in one line.
std::string describe(const Scene& scene);

/// Parses the driver's answer to `look`. Throws std::runtime_error for an answer that it cannot
/// parse.
Scene parseScene(const std::string& look);

/// The addresses of the links in the HTML of the pane.
std::set<std::string> linksOf(const std::string& html);

/// Removes escapes, so that differently escaped forms of an address are equal.
std::string unescapedAddress(const std::string& address);

}  // namespace velvox::e2e
