#include "tests/e2e/proxy.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <stdexcept>

#include "tools/drive/client/paths.h"

namespace velvox::e2e {
namespace {

constexpr std::string_view newsFile = "/news.txt?";
constexpr std::string_view writtenPort = ":80/";

sockaddr_in loopback(int port) {
    sockaddr_in at{};
    at.sin_family = AF_INET;
    at.sin_port = htons(static_cast<std::uint16_t>(port));
    at.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return at;
}

// Returns a socket bound to a free port, and the port.
int boundSocket(int& port) {
    const int result = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in at = loopback(0);
    socklen_t size = sizeof at;
    if (bind(result, reinterpret_cast<const sockaddr*>(&at), size) != 0 ||
        getsockname(result, reinterpret_cast<sockaddr*>(&at), &size) != 0)
        throw std::runtime_error("no free port for a proxy");
    port = ntohs(at.sin_port);
    return result;
}

bool sendAll(int socket, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t sent = send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
    return true;
}

}  // namespace

std::string Exchange::address() const {
    const auto start = request_.find(' ') + 1;
    std::string result = request_.substr(start, request_.find(' ', start) - start);
    const auto port = result.find(writtenPort);
    if (port != result.npos) result.erase(port, writtenPort.size() - 1);
    return result;
}

// A client that reads nothing must not prevent the proxy from stopping.
bool Exchange::write(std::string_view bytes) const {
    while (!bytes.empty()) {
        pollfd ends[] = {{socket_, POLLOUT, 0}, {stopped_, POLLIN, 0}};
        if (poll(ends, 2, -1) < 0) continue;
        if (ends[1].revents) return false;
        const ssize_t sent = send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
        if (sent < 0 && errno == EAGAIN) continue;
        if (sent <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
    return true;
}

bool Exchange::reply(std::string_view body, std::string_view status,
                     std::string_view headers) const {
    return write("HTTP/1.1 " + std::string(status) +
                 "\r\nContent-Length: " + std::to_string(body.size()) +
                 "\r\nContent-Type: text/html\r\nConnection: close\r\n" + std::string(headers) +
                 "\r\n") &&
           write(body);
}

bool Exchange::connectedFor(Milliseconds time) const {
    pollfd ends[] = {{socket_, POLLRDHUP, 0}, {stopped_, POLLIN, 0}};
    return poll(ends, 2, static_cast<int>(time.count())) == 0;
}

void Exchange::drip(std::string_view bytes, Milliseconds pause) const {
    for (const char byte : bytes)
        if (!write({&byte, 1}) || !connectedFor(pause)) return;
}

void Exchange::reset() const {
    const linger atOnce{1, 0};
    setsockopt(socket_, SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
}

void Exchange::staySilent() const {
    connectedFor(Milliseconds(-1));
}

void Exchange::forward() const {
    const int server = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const sockaddr_in at = loopback(paths::sitesPort());
    // With HTTP/1.0 the server closes the connection after its reply, so the reply need not be
    // parsed.
    std::string request = request_.substr(0, request_.find("\r\n"));
    request.replace(request.rfind("HTTP/"), request.npos, "HTTP/1.0");
    const std::string host = address().substr(7, address().find('/', 7) - 7);
    if (connect(server, reinterpret_cast<const sockaddr*>(&at), sizeof at) == 0 &&
        sendAll(server, request + "\r\nHost: " + host + "\r\nConnection: close\r\n\r\n")) {
        char piece[65536];
        for (ssize_t got = 0; (got = recv(server, piece, sizeof piece, 0)) > 0;)
            if (!write({piece, static_cast<std::size_t>(got)})) break;
    }
    close(server);
}

Proxy::Proxy(Handler handler, Handler news)
    : listener_(boundSocket(port_)),
      stopped_(eventfd(0, EFD_CLOEXEC)),
      handler_(std::move(handler)),
      news_(std::move(news)) {
    listen(listener_, SOMAXCONN);
    acceptor_ = std::thread([this] { accept(); });
}

Proxy::~Proxy() {
    const std::uint64_t one = 1;
    if (::write(stopped_, &one, sizeof one) != sizeof one) std::terminate();
    acceptor_.join();
    for (std::thread& connection : connections_) connection.join();
    close(listener_);
    close(stopped_);
}

void Proxy::answerWith(Handler handler) {
    const std::lock_guard lock(mutex_);
    handler_ = std::move(handler);
}

std::vector<std::string> Proxy::addresses() const {
    const std::lock_guard lock(mutex_);
    return addresses_;
}

bool Proxy::asked(std::size_t times, Milliseconds time) const {
    return eventually([&] { return addresses().size() >= times; }, time);
}

void Proxy::noNews(const Exchange& exchange) {
    exchange.reply("<!-News!->none<!-NewsEnd!->");
}

void Proxy::accept() {
    for (;;) {
        pollfd ends[] = {{listener_, POLLIN, 0}, {stopped_, POLLIN, 0}};
        if (poll(ends, 2, -1) < 0) continue;
        if (ends[1].revents) return;
        const int socket = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
        if (socket >= 0) connections_.emplace_back([this, socket] { serve(socket); });
    }
}

void Proxy::serve(int socket) {
    std::string request;
    char piece[65536];
    while (!request.ends_with("\r\n\r\n")) {
        pollfd ends[] = {{socket, POLLIN, 0}, {stopped_, POLLIN, 0}};
        if (poll(ends, 2, -1) < 0) continue;
        const ssize_t got = ends[1].revents ? 0 : recv(socket, piece, sizeof piece, 0);
        if (got <= 0) break;
        request.append(piece, static_cast<std::size_t>(got));
    }
    if (request.ends_with("\r\n\r\n")) {
        const Exchange exchange(socket, stopped_, request);
        Handler handler;
        {
            const std::lock_guard lock(mutex_);
            const bool news = exchange.asksFor(newsFile);
            handler = news ? news_ : handler_;
            if (!news) addresses_.push_back(exchange.address());
        }
        handler(exchange);
    }
    close(socket);
}

}  // namespace velvox::e2e
