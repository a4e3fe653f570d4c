// A running Velvox, which tests read and control through its windows.
#pragma once

#include <string>
#include <vector>

#include "app/form1/form1_design.h"
#include "tests/support/example_addresses.h"
#include "tools/drive/client/driver.h"
#include "tools/drive/client/input.h"
#include "tools/drive/client/paths.h"
#include "tools/drive/client/process.h"

namespace velvox::e2e {

using namespace velvox::drive;

class Program {
 public:
    /// Starts a program, which gets its pages from the proxy at `port`, and waits for its window.
    explicit Program(int port = paths::sitesPort(), const std::string& name = "velvox.exe");

    const std::string& window() const { return window_; }
    std::string control(ControlId id) const;
    std::string edit() const { return control(controlId("linkin")) + "/Edit"; }

    std::string address() const { return driver().text(edit()); }
    /// The whole HTML of the result pane.
    std::string pane() const { return driver().text(control(controlId("output"))); }
    bool areaShown() const { return driver().visible(control(controlId("outer"))); }
    bool addressLocked() const { return !driver().enabled(edit()); }
    /// Whether a drag or a menu has the pointer captured.
    bool holdsPointer() const { return driver().ask({"capture", window_}) != "none"; }

    void click(ControlId id) const;
    /// Gives the window the display's keyboard focus. The display has no window manager that would
    /// do so after a message box has closed. Returns whether the window already had the focus.
    static bool takeKeyboard();
    static void awaitKeyboard();
    /// Puts a text into the address box without the clipboard.
    void enter(const std::string& address) const;
    /// Replaces the address by the clipboard's text with the keyboard. Returns whether the address
    /// then is `address`.
    bool paste(const std::string& address) const;
    /// Puts a text into the clipboard and pastes it, until Wine has noticed the new text.
    void pasteNew(const std::string& text, const std::string& address) const;
    /// Hides the result area if it is shown.
    void closeArea() const;
    /// Enters the address, presses Download and waits for the result area.
    void start(const std::string& address) const;
    /// Waits for the pane's HTML, and for the end of the run.
    void expectPane(const std::string& html, Milliseconds time = Driver::patience) const;
    /// Waits until Download's handler has returned. Throws if it does not return.
    void awaitEndOfRun() const;
    /// Chooses an entry of the site list with the keyboard, clicks its example and presses
    /// Download.
    void startExample(int entry) const;

    /// Waits until a menu is open and takes keys.
    void awaitMenu() const;
    /// Presses the access key of an entry in the menu that opens.
    void chooseFromMenu(const std::string& key) const;

    /// Runs Veoh's example on the replica sites. Returns whether the run gave its links.
    bool goodRun() const;
    void expectGoodRun() const;

    /// Performs a run to its end and closes the area, by messages instead of pointer and keys,
    /// which is faster. Returns whether the run gave links.
    bool runByMessages(const std::string& address) const;
    /// Delivers a tick of the timer with that number, as if its time had come.
    void tick(int timer) const;

    Process& process() { return process_; }
    const Process& process() const { return process_; }

 private:
    Program(const std::string& before, int port, const std::string& name);

    Process process_;
    std::string window_;
};

/// The links of Veoh's example.
inline constexpr const char* veohLinks =
    "<font face='tahoma' size='2'>"
    "<a href='http://content.veoh.com/flash/p/2/v669398tRxFQc4d/h669398.flv?ct=8b1d03f2'>"
    "Download FLV</a><br>"
    "<a href='http://content.veoh.com/ipod/v669398tRxFQc4d/h669398.mp4?ct=47aa9c01'>"
    "Download MP4</a></font>";

/// Returns title and text of the only message box, and closes the box with Enter.
std::string dismissBox();

}  // namespace velvox::e2e
