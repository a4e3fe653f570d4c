#include "tests/e2e/storm/server.h"

#include <algorithm>
#include <span>

namespace velvox::e2e {
namespace {

constexpr Milliseconds slowness{250};

// The first page of each site, which a run requests once. The sixth site, Metacafe, has none: the
// preview requests its player. Runs of a site that is missing here are not counted.
constexpr std::string_view firstPages[] = {
    "youtube.com/watch?v=", "clip.vn/movies/nfo/",         "sevenload.com/videos/",
    "veoh.com/rest/video/", "vuilen.com/view_book_detail",
};

// The preview requests players after the run, so no run waits for them.
constexpr std::string_view players[] = {"youtube.com/v/", ".swf", "metacafe.com/fplayer/"};

constexpr std::string_view junk =
    "<a href='javascript:x'>\0\xFF<enclosure url=\"x\" \"<page> <FLVPath>&&'><iframe src='\r\n";

bool containsAny(const std::string& address, std::span<const std::string_view> parts) {
    return std::ranges::any_of(
        parts, [&](std::string_view part) { return address.find(part) != address.npos; });
}

}  // namespace

// The news are short and no run waits for them, so they come from the replica sites.
StormServer::StormServer() : proxy_([this](const Exchange& to) { serve(to); }) {}

std::optional<long> StormServer::awaited(Milliseconds time) const {
    const std::lock_guard lock(mutex_);
    if (replied_ || Clock::now() - lastRequest_ > time) return std::nullopt;
    return requests_;
}

long StormServer::requests() const {
    const std::lock_guard lock(mutex_);
    return requests_;
}

void StormServer::serve(const Exchange& to) {
    Behaviour behaviour = behaviour_;
    const std::string address = to.address();
    bool follows = false;
    long number = 0;
    {
        const std::lock_guard lock(mutex_);
        if (!containsAny(address, players)) {
            number = ++requests_;
            lastRequest_ = Clock::now();
            replied_ = false;
        }
        follows = redirected_.erase(address) > 0;
        if (behaviour == Behaviour::Redirect && !follows) redirected_.insert(address);
    }
    if (!follows && containsAny(address, firstPages)) ++runs_;
    // A redirected request gets a good reply, otherwise the redirects could go on for ever.
    if (follows) behaviour = Behaviour::Good;
    if (behaviour == Behaviour::Silent) return to.staySilent();
    if (behaviour == Behaviour::Slow && !to.connectedFor(slowness)) return;
    const std::shared_lock allowed(replies_);
    reply(to, behaviour);
    const std::lock_guard lock(mutex_);
    if (number == requests_) replied_ = true;
}

void StormServer::reply(const Exchange& to, Behaviour behaviour) {
    switch (behaviour) {
        case Behaviour::CutHeader: to.write("HTTP/1.1 200 OK\r\nContent-"); break;
        case Behaviour::CutBody:
            to.write("HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nContent-Length: 5000\r\n\r\n<");
            break;
        case Behaviour::Redirect:
            to.reply("moved", "302 Found", "Location: " + to.address() + "\r\n");
            break;
        case Behaviour::ErrorPage: to.reply("<h1>Not Found</h1>", "404 Not Found"); break;
        case Behaviour::Junk: to.reply(junk); break;
        default: to.forward(); break;
    }
}

}  // namespace velvox::e2e
