#include "tools/drive/client/driver.h"

#include <sstream>
#include <stdexcept>

#include "tools/drive/characters.h"
#include "tools/drive/client/paths.h"

namespace velvox {

std::ostream& operator<<(std::ostream& out, const Bounds& r) {
    return out << r.width << "x" << r.height << "+" << r.left << "+" << r.top;
}

namespace drive {
namespace {

// Maximum time for an answer: longer than any wait that a request asks the driver for.
constexpr Milliseconds answerTime{120'000};

}  // namespace

Driver::Driver() : process_({paths::wine(), paths::program("drive.exe")}, true) {}

std::string Driver::exchange(const std::vector<std::string>& words) {
    std::string request;
    for (const std::string& word : words) request += word + endOfWord;
    process_.write(request + endOfText);
    return process_.readUntil(endOfText, answerTime);
}

std::string Driver::ask(const std::vector<std::string>& words) {
    const std::string answer = exchange(words);
    if (answer == "ok") return "";
    if (answer.starts_with("ok ")) return answer.substr(3);
    constexpr std::size_t quotedLength = 200;
    std::string request;
    for (const std::string& word : words) request += word.substr(0, quotedLength) + ' ';
    throw std::runtime_error(request + "-> " + answer);
}

bool Driver::holds(const std::vector<std::string>& words) {
    return exchange(words).starts_with("ok");
}

Bounds Driver::rect(const std::string& window) {
    Bounds r;
    std::istringstream(ask({"rect", window})) >> r.left >> r.top >> r.width >> r.height;
    return r;
}

Driver& driver() {
    static Driver one;
    return one;
}

}  // namespace drive
}  // namespace velvox
