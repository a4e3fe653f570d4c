#include "tests/support/local_server_win32.h"

#include <stdexcept>

namespace velvox {
namespace {

struct Sockets {
    Sockets() {
        WSADATA data;
        WSAStartup(MAKEWORD(2, 2), &data);
    }
};

}  // namespace

bool Connection::write(std::string_view bytes) const {
    while (!bytes.empty()) {
        const int sent = send(socket_, bytes.data(), static_cast<int>(bytes.size()), 0);
        if (sent <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
    return true;
}

bool Connection::wait(unsigned milliseconds) const {
    for (unsigned waited = 0; waited < milliseconds && !stopped_; waited += 10) Sleep(10);
    return !stopped_;
}

LocalServer::LocalServer(Handler handler) : handler_(std::move(handler)) {
    static const Sockets sockets;
    listener_ = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in at{};
    at.sin_family = AF_INET;
    at.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    int size = sizeof at;
    if (bind(listener_, reinterpret_cast<const sockaddr*>(&at), size) != 0 ||
        listen(listener_, SOMAXCONN) != 0 ||
        getsockname(listener_, reinterpret_cast<sockaddr*>(&at), &size) != 0)
        throw std::runtime_error("the test's server cannot listen");
    port_ = ntohs(at.sin_port);
    acceptor_ = std::thread([this] { accept(); });
}

LocalServer::~LocalServer() {
    stopped_ = true;
    closesocket(listener_);
    acceptor_.join();
    for (std::thread& connection : connections_) connection.join();
}

std::string LocalServer::address(std::string_view path) const {
    return "http://127.0.0.1:" + std::to_string(port_) + std::string(path);
}

std::vector<std::string> LocalServer::requests() const {
    const std::lock_guard lock(mutex_);
    return requests_;
}

std::string LocalServer::reply(std::string_view body, std::string_view status,
                               std::string_view headers) {
    return "HTTP/1.1 " + std::string(status) +
           "\r\nContent-Length: " + std::to_string(body.size()) + "\r\nConnection: close\r\n" +
           std::string(headers) + "\r\n" + std::string(body);
}

void LocalServer::accept() {
    while (!stopped_) {
        // Polling, since closing a listener does not end a blocked accept everywhere.
        fd_set ready;
        FD_ZERO(&ready);
        FD_SET(listener_, &ready);
        timeval patience{0, 20'000};
        if (select(0, &ready, nullptr, nullptr, &patience) <= 0) continue;
        const SOCKET socket = ::accept(listener_, nullptr, nullptr);
        if (socket == INVALID_SOCKET) continue;
        connections_.emplace_back([this, socket] { serve(socket); });
    }
}

void LocalServer::serve(SOCKET socket) {
    std::string request;
    char piece[4096];
    while (!request.ends_with("\r\n\r\n")) {
        const int got = recv(socket, piece, sizeof piece, 0);
        if (got <= 0) break;
        request.append(piece, static_cast<std::size_t>(got));
    }
    if (!request.empty()) {
        {
            const std::lock_guard lock(mutex_);
            requests_.push_back(request);
        }
        handler_(Connection(socket, stopped_), request);
    }
    closesocket(socket);
}

}  // namespace velvox
