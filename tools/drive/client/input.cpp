#include "tools/drive/client/input.h"

#include "tools/drive/client/process.h"

namespace velvox::drive {

Hands& Hands::add(std::vector<std::string> words) {
    events_.insert(events_.end(), words.begin(), words.end());
    return *this;
}

Hands& Hands::moveTo(Point at) {
    return add({"mousemove", std::to_string(at.x), std::to_string(at.y)});
}

Hands& Hands::press(int button) {
    return add({"mousedown", std::to_string(button)});
}

Hands& Hands::release(int button) {
    return add({"mouseup", std::to_string(button)});
}

Hands& Hands::click(Point at, int button) {
    return moveTo(at).press(button).release(button);
}

Hands& Hands::key(const std::string& keys) {
    return add({"key", keys});
}

Hands& Hands::type(const std::string& text) {
    return add({"type", text});
}

void Hands::act() {
    std::vector<std::string> command{"xdotool"};
    command.insert(command.end(), events_.begin(), events_.end());
    outputOf(command);
    events_.clear();
}

void putIntoClipboard(std::string_view text) {
    // It stays behind to serve the text until another one comes: its output must lead nowhere.
    outputOf({"sh", "-c", "exec xclip -selection clipboard -i > /dev/null 2>&1"}, text);
}

}  // namespace velvox::drive
