// Simulated user input: real pointer, keys and clipboard of the display.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tools/drive/client/driver.h"

namespace velvox::drive {

struct Point {
    int x = 0;
    int y = 0;
};

constexpr Point middleOf(const Rectangle& r) {
    return {r.left + r.width / 2, r.top + r.height / 2};
}

/// Pointer and keys as one chain of events: `Hands().moveTo(a).press().moveTo(b).release().act()`.
/// One chain is sent without a pause in it, so the program sees its end before it can answer.
class Hands {
 public:
    Hands& moveTo(Point at);
    Hands& press(int button = 1);
    Hands& release(int button = 1);
    Hands& click(Point at, int button = 1);
    Hands& key(const std::string& keys);
    /// Presses a key without releasing it; again while it is held, as its repetition does.
    Hands& hold(const std::string& key);
    Hands& letGo(const std::string& key);
    Hands& type(const std::string& text);
    void act();

 private:
    Hands& add(std::vector<std::string> words);
    std::string events_;
};

void putIntoClipboard(std::string_view text);

}  // namespace velvox::drive
