// Simulated user input: real pointer, keys and clipboard of the display.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tools/drive/client/driver.h"

namespace velvox::drive {

constexpr Point middleOf(const Bounds& r) {
    return {r.left + r.width / 2, r.top + r.height / 2};
}

/// Pointer and key events as one chain:
/// `InputSimulator().moveTo(a).press().moveTo(b).release().act()`. A chain is sent without pauses,
/// so its end reaches the program before the program can react to its start.
class InputSimulator {
 public:
    InputSimulator& moveTo(Point at);
    InputSimulator& press(int button = 1);
    InputSimulator& release(int button = 1);
    InputSimulator& click(Point at, int button = 1);
    InputSimulator& key(const std::string& keys);
    /// Presses a key without releasing it. A second call repeats the key, as holding it does.
    InputSimulator& hold(const std::string& key);
    InputSimulator& letGo(const std::string& key);
    InputSimulator& type(const std::string& text);
    void act();

 private:
    InputSimulator& add(std::vector<std::string> words);
    std::string events_;
};

void putIntoClipboard(std::string_view text);

}  // namespace velvox::drive
