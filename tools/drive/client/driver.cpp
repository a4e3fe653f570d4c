#include "tools/drive/client/driver.h"

#include <sstream>
#include <stdexcept>

#include "tools/drive/client/paths.h"
#include "tools/drive/line.h"

namespace velvox {

std::ostream& operator<<(std::ostream& out, const Bounds& r) {
    return out << r.width << "x" << r.height << "+" << r.left << "+" << r.top;
}

namespace drive {
namespace {

// Maximum time for an answer: longer than any wait that a request asks the driver for.
constexpr Milliseconds answerTime{120'000};

std::string inMilliseconds(Milliseconds time) {
    return std::to_string(time.count());
}

std::string unescaped(std::string_view line) {
    return words('"' + std::string(line) + '"').at(0);
}

}  // namespace

Driver::Driver() : process_({paths::wine(), paths::program("drive.exe")}, true) {}

Driver::Answer Driver::exchange(const std::vector<std::string>& words) {
    std::string request;
    for (const std::string& word : words) request += '"' + escaped(word) + "\" ";
    process_.write(request + '\n');
    const std::string line = process_.readLine(answerTime);
    if (line == "ok") return {true, ""};
    if (line.starts_with("ok ")) return {true, unescaped(std::string_view(line).substr(3))};
    return {false, line};
}

std::string Driver::ask(const std::vector<std::string>& words) {
    Answer answer = exchange(words);
    if (answer.ok) return answer.text;
    constexpr std::size_t quotedLength = 200;
    std::string request;
    for (const std::string& word : words) request += word.substr(0, quotedLength) + ' ';
    throw std::runtime_error(request + "-> " + answer.text);
}

bool Driver::holds(const std::vector<std::string>& words) {
    return exchange(words).ok;
}

Bounds Driver::rect(const std::string& window) {
    Bounds r;
    std::istringstream(ask({"rect", window})) >> r.left >> r.top >> r.width >> r.height;
    return r;
}

bool Driver::visible(const std::string& window) {
    return ask({"state", window}).find("visible=1") != std::string::npos;
}

bool Driver::enabled(const std::string& window) {
    return ask({"state", window}).find("enabled=1") != std::string::npos;
}

std::string Driver::focus(const std::string& window) {
    const std::string answer = ask({"focus", window});
    return answer.substr(0, answer.find(' '));
}

std::vector<std::string> Driver::items(const std::string& window) {
    std::vector<std::string> all;
    std::istringstream lines(ask({"items", window}));
    for (std::string line; std::getline(lines, line);) all.push_back(line);
    return all;
}

void Driver::waitVisible(const std::string& window) {
    ask({"wait", window, inMilliseconds(patience)});
}

void Driver::waitGone(const std::string& window) {
    ask({"gone", window, inMilliseconds(patience)});
}

void Driver::waitText(const std::string& window, const std::string& text, Milliseconds time) {
    ask({"until", window, "equals", text, inMilliseconds(time)});
}

void Driver::waitPart(const std::string& window, const std::string& part) {
    ask({"until", window, "contains", part, inMilliseconds(patience)});
}

std::string Driver::waitBox() {
    return ask({"box", inMilliseconds(patience)});
}

Milliseconds Driver::ping(const std::string& window, Milliseconds time) {
    return Milliseconds(std::stol(ask({"ping", window, inMilliseconds(time)})));
}

Driver& driver() {
    static Driver one;
    return one;
}

}  // namespace drive
}  // namespace velvox
