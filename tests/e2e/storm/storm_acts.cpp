// Performs the acts and computes which links each of them may open.
#include <algorithm>
#include <iterator>
#include <utility>

#include "app/form1/home_page.h"
#include "tests/e2e/storm/storm.h"

namespace velvox::e2e {
namespace {

using Kind = Act::Kind;

const std::string homeAddress{homePage};

// Maximum time from the press of a link to its opening.
constexpr Milliseconds permissionTime{3000};

// The area near the upper left corner of the pane, where the first links are.
constexpr int firstLinesWidth = 90;
constexpr int firstLinesHeight = 60;

// Size of the display that tools/with-session makes.
constexpr int screenWidth = 1280;
constexpr int screenHeight = 1024;

// A point within a rectangle, in per mille of its size. The point is clamped to the screen, because
// the window may extend beyond the screen's edge.
Point at(const Bounds& r, int x, int y) {
    return {std::clamp(r.left + r.width * x / 1000, 0, screenWidth - 1),
            std::clamp(r.top + r.height * y / 1000, 0, screenHeight - 1)};
}

bool isOneOf(const std::string& key, std::initializer_list<const char*> keys) {
    return std::ranges::any_of(keys, [&](const char* other) { return key == other; });
}

// Whether a key presses the focused control or chooses from a menu.
bool presses(const std::string& key) {
    return isOneOf(key, {"Return", "space", "o", "c", "a", "n", "m"});
}

void pressAndRelease(Point down, int button, int times) {
    InputSimulator input;
    input.moveTo(down);
    for (int i = 0; i < times; ++i) input.press(button).release(button);
    input.act();
}

// Sends WM_SYSCOLORCHANGE, WM_SETTINGCHANGE (of the work area or in general), WM_DISPLAYCHANGE or
// WM_THEMECHANGED.
void announceSettings(const std::string& window, int which) {
    constexpr struct {
        const char* message;
        const char* w;
    } news[] = {{"0x15", "0"}, {"0x1A", "47"}, {"0x1A", "0"}, {"0x7E", "32"}, {"0x31A", "0"}};
    driver().ask({"send", window, news[which].message, news[which].w, "0"});
}

}  // namespace

bool onScreen(Point at) {
    return at.x >= 0 && at.x < screenWidth && at.y >= 0 && at.y < screenHeight;
}

Point Storm::placeOf(const Act& act) const {
    switch (act.kind) {
        case Kind::Start: return middleOf(scene_[controlId("UniXPButton1")].bounds);
        case Kind::ClickControl: return at(scene_[act.control].bounds, act.x, act.y);
        case Kind::ClickFirstLine: {
            Bounds lines = scene_[controlId("output")].bounds;
            lines.width = firstLinesWidth;
            lines.height = firstLinesHeight;
            return at(lines, act.x, act.y);
        }
        default: return at(scene_.bounds, act.x, act.y);
    }
}

Point Storm::endOf(const Act& act) const {
    return act.kind == Kind::Drag ? at(scene_.bounds, act.toX, act.toY) : placeOf(act);
}

void Storm::carryOut(const Act& act) {
    const Point down = placeOf(act);
    const std::string& window = program().window();
    const bool keys = act.kind == Kind::Keys || act.kind == Kind::Hold || act.kind == Kind::Type ||
                      act.kind == Kind::Paste;
    if (keys && scene_.clear()) Program::takeKeyboard();
    InputSimulator input;
    switch (act.kind) {
        case Kind::Start:
            // A user cannot change the address during a run.
            if (!scene_.areaShown()) program().enter(act.text);
            pressAndRelease(down, 1, 1);
            break;
        case Kind::Click:
        case Kind::ClickControl:
        case Kind::ClickFirstLine: pressAndRelease(down, act.button, act.count); break;
        case Kind::Press:
            input.moveTo(down).press(act.button).act();
            buttonDown_ = true;
            break;
        case Kind::Release:
            input.moveTo(down).release(act.button).act();
            buttonDown_ = false;
            break;
        case Kind::Drag: {
            const Point to = endOf(act);
            const Point half{(down.x + to.x) / 2, (down.y + to.y) / 2};
            input.moveTo(down).press(act.button).moveTo(half).moveTo(to).release(act.button).act();
            break;
        }
        case Kind::Wheel:
            input.moveTo(down);
            for (int i = 0; i < act.count; ++i) input.press(act.button).release(act.button);
            input.act();
            break;
        case Kind::Keys:
            for (const std::string& key : act.keys) input.key(key);
            input.act();
            break;
        case Kind::Hold:
            for (int i = 0; i < act.count; ++i) input.hold(act.keys[0]);
            input.letGo(act.keys[0]).act();
            break;
        case Kind::Type: input.type(act.text).act(); break;
        case Kind::Paste:
            putIntoClipboard(act.text);
            input.key("ctrl+v").act();
            break;
        case Kind::Minimise: driver().ask({"post", window, "0x112", "0xF020", "0"}); break;
        case Kind::Restore: driver().ask({"post", window, "0x112", "0xF120", "0"}); break;
        case Kind::Settings: announceSettings(window, act.count); break;
        case Kind::Serve:
        case Kind::Pause:
        case Kind::Close: break;
    }
}

// Permits the links that an act may open. Called before the act, and again after it if links have
// appeared meanwhile.
void Storm::permit(const Act& act, BrowserLog::Time since) {
    switch (act.kind) {
        case Kind::Start:
        case Kind::Click:
        case Kind::ClickControl:
        case Kind::ClickFirstLine:
        case Kind::Press:
        case Kind::Release:
        case Kind::Drag: permitPointer(act, since); break;
        case Kind::Keys:
        case Kind::Hold:
        case Kind::Type: permitKeys(act, since); break;
        default: break;
    }
}

void Storm::permitPointer(const Act& act, BrowserLog::Time since) {
    const Point down = placeOf(act);
    const Point up = endOf(act);
    std::set<std::string> links;
    const auto addShown = [&](std::set<std::string>& to, Point where) {
        if (scene_.shows(controlId("output"), where))
            to.insert(scene_.links.begin(), scene_.links.end());
        if (scene_.shows(controlId("Label12"), where)) to.insert(homeAddress);
    };
    if (scene_.menu) {
        links = menuLinks_;
        // The first click may close the menu, and the second may press what is below the menu.
        if (act.button == 1 && act.count > 1) addShown(links, up);
    } else if (act.kind == Kind::Press) {
        pressedLinks_.clear();
        if (act.button == 1) addShown(pressedLinks_, down);
        return;
    } else if (act.button == 1) {
        if (act.kind == Kind::Release) {
            std::set<std::string> now;
            addShown(now, down);
            std::ranges::set_intersection(now, std::exchange(pressedLinks_, {}),
                                          std::inserter(links, links.end()));
        } else {
            addShown(links, up);
        }
    }
    const int times = act.kind == Kind::Drag || act.kind == Kind::Release ? 1 : act.count;
    if (!links.empty()) permissions_.push_back({since, times, links, Deadline(permissionTime)});
}

// It cannot be known which windows get the keys of an act. Each key that presses something may open
// one link that is shown when the act begins.
void Storm::permitKeys(const Act& act, BrowserLog::Time since) {
    std::set<std::string> links = scene_.menu ? menuLinks_ : scene_.links;
    if (scene_[controlId("Label12")].visible) links.insert(homeAddress);
    int times = 0;
    if (act.kind == Kind::Hold)
        times = 1;
    else if (act.kind == Kind::Type)
        times = scene_.menu || scene_.hasFocus(controlId("Label12")) ? 1 : 0;
    else
        times = static_cast<int>(std::ranges::count_if(act.keys, presses));
    if (times > 0 && !links.empty())
        permissions_.push_back({since, times, links, Deadline(permissionTime)});
}

// Whether an act may end the program: a press of the quit button by pointer or key, or the last
// entry of the system menu.
bool Storm::mayEnd(const Act& act) const {
    if (ending_ || scene_.menu) return true;
    switch (act.kind) {
        case Kind::Keys:
            return std::ranges::any_of(act.keys, presses) &&
                   (act.keys.size() > 1 || scene_.hasFocus(controlId("isButton2")));
        case Kind::Hold:
        case Kind::Type: return scene_.hasFocus(controlId("isButton2"));
        case Kind::Start: return false;
        // topendskin surrounds the quit button and is a larger target.
        default: return scene_.shows(controlId("topendskin"), endOf(act));
    }
}

}  // namespace velvox::e2e
