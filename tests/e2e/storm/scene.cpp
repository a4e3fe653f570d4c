#include "tests/e2e/storm/scene.h"

#include <sstream>
#include <stdexcept>

namespace velvox::e2e {
namespace {

void read(std::istream& in, Bounds& r) {
    in >> r.left >> r.top >> r.width >> r.height;
}

}  // namespace

bool Scene::shows(ControlId id, Point at) const {
    const Control& control = (*this)[id];
    const Bounds& r = control.bounds;
    return control.visible && at.x >= r.left && at.x < r.left + r.width && at.y >= r.top &&
           at.y < r.top + r.height;
}

Scene parseScene(const std::string& look) {
    Scene scene;
    std::istringstream lines(look);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string what;
        words >> what;
        if (what == "main") {
            words >> scene.visible >> scene.enabled >> scene.iconic;
            read(words, scene.bounds);
        } else if (what == "mode") {
            words >> scene.menu >> scene.moving >> scene.list >> scene.capture;
        } else if (what == "focus") {
            words >> scene.focus >> scene.focusParent;
        } else if (what == "control") {
            int id = 0;
            words >> id;
            Scene::Control& control = scene.controls[id];
            words >> control.visible >> control.enabled;
            read(words, control.bounds);
        } else {
            // The text of a message box may have several lines.
            scene.box += line + '\n';
            continue;
        }
        if (!words) throw std::runtime_error("not a look: " + line);
    }
    const auto has = [&](ControlId id) { return scene.controls.contains(static_cast<int>(id)); };
    if (!has(controlId("output")) || !has(controlId("topendskin")) || !has(controlId("linkin")))
        throw std::runtime_error("the window has no controls");
    return scene;
}

std::string describe(const Scene& scene) {
    std::string text = !scene.visible       ? "no window"
                       : scene.iconic       ? "minimised"
                       : !scene.areaShown() ? "no result area"
                       : !scene.closable()  ? "result area of a run"
                                            : "result area with Close";
    constexpr std::size_t quotedLength = 90;
    if (!scene.html.empty()) text += " \"" + scene.html.substr(0, quotedLength) + '"';
    if (!scene.box.empty()) text += ", message box";
    if (scene.menu) text += ", menu";
    if (scene.moving) text += ", moving";
    if (scene.list) text += ", list";
    if (scene.capture) text += ", capture";
    return text + ", focus " + std::to_string(scene.focusParent) + '/' +
           std::to_string(scene.focus);
}

std::set<std::string> linksOf(const std::string& html) {
    constexpr std::string_view opening = "<a href='";
    std::set<std::string> links;
    for (auto at = html.find(opening); at != html.npos; at = html.find(opening, at)) {
        at += opening.size();
        links.insert(unescapedAddress(html.substr(at, html.find('\'', at) - at)));
    }
    return links;
}

std::string unescapedAddress(const std::string& address) {
    std::string result;
    for (std::size_t i = 0; i < address.size(); ++i) {
        unsigned code = 0;
        if (address[i] == '%' && i + 2 < address.size() &&
            std::sscanf(address.c_str() + i + 1, "%2x", &code) == 1) {
            result += static_cast<char>(code);
            i += 2;
        } else {
            result += address[i];
        }
    }
    return result;
}

}  // namespace velvox::e2e
