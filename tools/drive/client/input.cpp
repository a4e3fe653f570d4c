#include "tools/drive/client/input.h"

#include <stdexcept>
#include <utility>

#include "tools/drive/client/process.h"

namespace velvox::drive {
namespace {

constexpr Milliseconds toolTime{60'000};

// One xdotool process serves the whole test program, because starting a process for each chain of
// events takes ten times as long as the events themselves.
class Xdotool {
 public:
    // Returns once the display has taken the events: xdotool answers getdisplaygeometry only after
    // them. A request about a window cannot replace it, because xdotool would then send the
    // following keys to that window as synthetic events, unlike those of a keyboard.
    void perform(const std::string& events) {
        process_.write(events + "\ngetdisplaygeometry\n");
        const std::string answer = process_.readUntil('\n', toolTime);
        if (answer.find_first_not_of("0123456789 ") != answer.npos)
            throw std::runtime_error(events + " -> " + answer);
    }

 private:
    Process process_{{"stdbuf", "-oL", "xdotool", "-"}, true};
};

std::string quoted(const std::string& word) {
    if (word.find_first_of(" \t#'\"") == word.npos) return word;
    if (word.find('"') != word.npos) throw std::invalid_argument("no way to quote: " + word);
    return '"' + word + '"';
}

}  // namespace

InputSimulator& InputSimulator::add(std::vector<std::string> words) {
    for (const std::string& word : words) events_ += (events_.empty() ? "" : " ") + quoted(word);
    return *this;
}

InputSimulator& InputSimulator::moveTo(Point at) {
    return add({"mousemove", std::to_string(at.x), std::to_string(at.y)});
}

InputSimulator& InputSimulator::press(int button) {
    return add({"mousedown", std::to_string(button)});
}

InputSimulator& InputSimulator::release(int button) {
    return add({"mouseup", std::to_string(button)});
}

InputSimulator& InputSimulator::click(Point at, int button) {
    return moveTo(at).press(button).release(button);
}

InputSimulator& InputSimulator::key(const std::string& keys) {
    return add({"key", "--delay", "0", keys});
}

InputSimulator& InputSimulator::hold(const std::string& key) {
    return add({"keydown", "--delay", "0", key});
}

InputSimulator& InputSimulator::letGo(const std::string& key) {
    return add({"keyup", "--delay", "0", key});
}

InputSimulator& InputSimulator::type(const std::string& text) {
    add({"type", "--delay", "0", text});
    // xdotool's `type` takes the rest of the line as text, so the next event needs a new line.
    events_ += '\n';
    return *this;
}

void InputSimulator::act() {
    static Xdotool xdotool;
    if (!events_.empty()) xdotool.perform(std::exchange(events_, {}));
}

void putIntoClipboard(std::string_view text) {
    // xclip keeps running until another program fills the clipboard. Its output is discarded,
    // because outputOf() reads until the output is closed.
    outputOf({"sh", "-c", "exec xclip -selection clipboard -i > /dev/null 2>&1"}, text);
}

}  // namespace velvox::drive
