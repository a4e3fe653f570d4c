#include "tests/e2e/program.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <stdexcept>

namespace velvox::e2e {
namespace {

constexpr int veohEntry = 3;
constexpr const char* mainWindow = "Form1";
constexpr const char* messageBox = "#32770";

constexpr const char* title = "Velvox 1.00";

std::string focusedTitle() {
    std::string name =
        outputOf({"sh", "-c", "xdotool getwindowfocus getwindowname 2> /dev/null || true"});
    while (name.ends_with('\n')) name.pop_back();
    return name;
}

// The current folder of the program, where its dialogs save by default. It belongs to the session,
// not to the checkout.
std::string currentFolder() {
    const char* const prefix = std::getenv("WINEPREFIX");
    if (!prefix) throw std::runtime_error("there is no session");
    return prefix;
}

// The main window in front, if there is one.
std::string frontWindow() {
    return driver().holds({"find", mainWindow}) ? driver().ask({"find", mainWindow}) : "";
}

// Waits until a main window other than `before` is shown in front.
std::string newMainWindow(const std::string& before) {
    std::string found;
    if (!eventually([&] {
            found = frontWindow();
            return !found.empty() && found != before && driver().visible(found);
        }))
        throw std::runtime_error("the program shows no window");
    return found;
}

}  // namespace

Program::Program(int port, const std::string& name) : Program(frontWindow(), port, name) {}

Program::Program(const std::string& before, int port, const std::string& name)
    : process_({"env", "-C", currentFolder(), "http_proxy=http://127.0.0.1:" + std::to_string(port),
                paths::wine(), paths::program(name)}),
      window_(newMainWindow(before)) {
    // The window answers its first message after it has been painted.
    driver().ping(window_);
    awaitKeyboard();
}

bool Program::takeKeyboard() {
    if (focusedTitle() == title) return true;
    outputOf({"sh", "-c",
              "xdotool search --onlyvisible --name '^Velvox 1.00$' windowfocus > /dev/null 2>&1 || "
              "true"});
    return false;
}

void Program::awaitKeyboard() {
    if (!eventually(takeKeyboard))
        throw std::runtime_error("the program does not get the keyboard");
}

std::string Program::control(ControlId id) const {
    return window_ + "/@" + std::to_string(static_cast<int>(id));
}

void Program::click(ControlId id) const {
    InputSimulator().click(middleOf(driver().rect(control(id)))).act();
}

void Program::enter(const std::string& address) const {
    driver().ask({"set", edit(), address});
}

bool Program::paste(const std::string& address) const {
    InputSimulator().key("End").key("shift+Home").key("ctrl+v").act();
    return eventually([&] { return this->address() == address; }, Milliseconds(1000));
}

// On a busy machine Wine may miss a change of the clipboard, so the text is offered again.
void Program::pasteNew(const std::string& text, const std::string& address) const {
    EXPECT_TRUE(eventually([&] {
        putIntoClipboard(text);
        return eventually([&] { return paste(address); }, Milliseconds(5000));
    })) << this->address();
}

void Program::closeArea() const {
    if (!areaShown()) return;
    click(controlId("isButton1"));
    driver().waitGone(control(controlId("outer")));
}

void Program::start(const std::string& address) const {
    closeArea();
    enter(address);
    click(controlId("UniXPButton1"));
    driver().waitVisible(control(controlId("outer")));
}

void Program::expectPane(const std::string& html, Milliseconds time) const {
    EXPECT_NO_THROW(driver().waitText(control(controlId("output")), html, time));
    EXPECT_NO_THROW(awaitEndOfRun());
}

void Program::awaitEndOfRun() const {
    if (!eventually([&] { return driver().enabled(control(controlId("isButton1"))); }))
        throw std::runtime_error("Close is not usable");
    // The handler returns a little after Close is enabled, and input is dropped until then. A
    // posted message that is no input waits in the queue instead, and its effect shows that the
    // handler has returned.
    const std::string setMark = "0xB9", getMark = "0xB8";  // EM_SETMODIFY, EM_GETMODIFY
    driver().ask({"send", edit(), setMark, "0", "0"});
    driver().ask({"post", edit(), setMark, "1", "0"});
    if (!eventually([&] { return driver().ask({"send", edit(), getMark, "0", "0"}) == "1"; }))
        throw std::runtime_error("the run does not end");
}

void Program::startExample(int entry) const {
    closeArea();
    const std::string list = control(controlId("ds"));
    InputSimulator().click(middleOf(driver().rect(list))).act();
    const std::string handle = driver().ask({"find", list});
    // Keys go to the window that has the focus when they arrive, so the list must have the focus
    // first.
    if (!eventually([&] { return driver().focus(window_) == handle; }))
        throw std::runtime_error("the site list does not get the keyboard");
    InputSimulator keys;
    keys.key("Home");
    for (int i = 0; i < entry; ++i) keys.key("Down");
    keys.key("Return").act();
    const std::string example = control(controlId("vd"));
    // The click is at the label's left end, where every example has text.
    const Bounds place = driver().rect(example);
    InputSimulator().click({place.left + place.width / 8, place.top + 5}).act();
    // The list and the address box change with each key, and keys may still be in the queue.
    if (!eventually([&] {
            const std::string chosen = driver().ask({"send", list, "0x147", "0", "0"});
            return chosen == std::to_string(entry) &&  // CB_GETCURSEL
                   driver().text(edit()) == driver().text(example);
        }))
        throw std::runtime_error("the example does not reach the address box");
    click(controlId("UniXPButton1"));
    driver().waitVisible(control(controlId("outer")));
}

void Program::awaitMenu() const {
    driver().waitVisible("#32768");
    // A menu is visible a little before it takes keys.
    EXPECT_TRUE(eventually([&] { return holdsPointer(); }));
}

void Program::chooseFromMenu(const std::string& key) const {
    awaitMenu();
    InputSimulator().key(key).act();
}

bool Program::goodRun() const {
    startExample(veohEntry);
    awaitEndOfRun();
    const bool good = !addressLocked() && pane() == veohLinks;
    closeArea();
    return good;
}

void Program::expectGoodRun() const {
    EXPECT_TRUE(goodRun()) << pane();
}

bool Program::runByMessages(const std::string& address) const {
    const auto press = [this](ControlId button) {
        driver().ask({"post", control(button), "0xF5", "0", "0"});  // BM_CLICK
    };
    enter(address);
    press(controlId("UniXPButton1"));
    driver().waitVisible(control(controlId("outer")));
    const auto shows = [this](const char* part) { return pane().find(part) != std::string::npos; };
    // A preview's link may appear after the run has ended. The line of a failure is red.
    const bool found =
        eventually([&] { return shows("<a href=") || shows("color='red'"); }) && shows("<a href=");
    awaitEndOfRun();
    press(controlId("isButton1"));
    driver().waitGone(control(controlId("outer")));
    return found;
}

void Program::tick(int timer) const {
    driver().ask({"send", window_, "0x113", std::to_string(timer), "0"});
}

std::string dismissBox() {
    const std::string titleAndText = driver().waitBox();
    InputSimulator().key("Return").act();
    driver().waitGone(messageBox);
    Program::awaitKeyboard();
    return titleAndText;
}

}  // namespace velvox::e2e
