#include "tests/e2e/proxy.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

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

bool Exchange::write(std::string_view bytes) const {
    return sendAll(socket_, bytes);
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
    pollfd end{socket_, POLLRDHUP, 0};
    return poll(&end, 1, static_cast<int>(time.count())) == 0;
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
    : listener_(boundSocket(port_)), handler_(std::move(handler)), news_(std::move(news)) {
    listen(listener_, SOMAXCONN);
    acceptor_ = std::thread([this] { accept(); });
}

// A socket that is shut down ends every call that waits for it.
Proxy::~Proxy() {
    shutdown(listener_, SHUT_RDWR);
    acceptor_.join();
    {
        const std::lock_guard lock(mutex_);
        for (const int socket : sockets_) shutdown(socket, SHUT_RDWR);
    }
    for (std::thread& connection : connections_) connection.join();
    close(listener_);
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
    for (int socket; (socket = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC)) >= 0;) {
        const std::lock_guard lock(mutex_);
        sockets_.insert(socket);
        connections_.emplace_back([this, socket] { serve(socket); });
    }
}

void Proxy::serve(int socket) {
    std::string request;
    char piece[65536];
    ssize_t got = 0;
    while (!request.ends_with("\r\n\r\n") && (got = recv(socket, piece, sizeof piece, 0)) > 0)
        request.append(piece, static_cast<std::size_t>(got));
    if (got > 0) {
        const Exchange exchange(socket, request);
        Handler handler;
        {
            const std::lock_guard lock(mutex_);
            const bool news = exchange.asksFor(newsFile);
            handler = news ? news_ : handler_;
            if (!news) addresses_.push_back(exchange.address());
        }
        handler(exchange);
    }
    const std::lock_guard lock(mutex_);
    sockets_.erase(socket);
    close(socket);
}

}  // namespace velvox::e2e
