// A server on the loopback interface. A test's handler decides how it replies: completely, slowly,
// partly or never.
#pragma once

#include <winsock2.h>

#include "tests/support/test_thread_win32.h"

#include <atomic>
#include <functional>
#include <list>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace velvox {

/// One accepted connection, which is closed when its handler returns.
class Connection {
 public:
    Connection(SOCKET socket, const std::atomic<bool>& stopped)
        : socket_(socket), stopped_(stopped) {}

    /// Returns false once the client has closed the connection.
    bool write(std::string_view bytes) const {
        while (!bytes.empty()) {
            const int sent = send(socket_, bytes.data(), static_cast<int>(bytes.size()), 0);
            if (sent <= 0) return false;
            bytes.remove_prefix(static_cast<std::size_t>(sent));
        }
        return true;
    }

    /// Waits for a time, but not longer than the server runs. Returns false if the server has
    /// stopped.
    bool wait(unsigned milliseconds) const {
        for (unsigned waited = 0; waited < milliseconds && !stopped_; waited += 10) Sleep(10);
        return !stopped_;
    }

 private:
    SOCKET socket_;
    const std::atomic<bool>& stopped_;
};

class LocalServer {
 public:
    /// Called on a separate thread for each request, with the request's header text.
    using Handler = std::function<void(const Connection& connection, const std::string& request)>;

    explicit LocalServer(Handler handler) : handler_(std::move(handler)) {
        WSADATA data;
        WSAStartup(MAKEWORD(2, 2), &data);
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
        acceptor_.emplace([this] { accept(); });
    }
    LocalServer(const LocalServer&) = delete;
    LocalServer& operator=(const LocalServer&) = delete;
    ~LocalServer() {
        stopped_ = true;
        closesocket(listener_);
        acceptor_.reset();
        connections_.clear();
        WSACleanup();
    }

    /// "http://127.0.0.1:PORT" and a path.
    std::string address(const std::string& path = "/") const {
        return "http://127.0.0.1:" + std::to_string(port_) + path;
    }

    static std::string reply(const std::string& body, const std::string& status = "200 OK",
                             const std::string& headers = "") {
        return "HTTP/1.1 " + status + "\r\nContent-Length: " + std::to_string(body.size()) +
               "\r\nConnection: close\r\n" + headers + "\r\n" + body;
    }

 private:
    void accept() {
        while (!stopped_) {
            // The loop polls, because closing a listener does not end a blocked accept() on every
            // system.
            fd_set ready;
            FD_ZERO(&ready);
            FD_SET(listener_, &ready);
            timeval patience{0, 20'000};
            if (select(0, &ready, nullptr, nullptr, &patience) <= 0) continue;
            const SOCKET socket = ::accept(listener_, nullptr, nullptr);
            if (socket != INVALID_SOCKET)
                connections_.emplace_back([this, socket] { serve(socket); });
        }
    }

    void serve(SOCKET socket) {
        std::string request;
        char piece[4096];
        while (!request.ends_with("\r\n\r\n")) {
            const int got = recv(socket, piece, sizeof piece, 0);
            if (got <= 0) break;
            request.append(piece, static_cast<std::size_t>(got));
        }
        if (!request.empty()) handler_(Connection(socket, stopped_), request);
        closesocket(socket);
    }

    Handler handler_;
    SOCKET listener_;
    int port_ = 0;
    std::atomic<bool> stopped_{false};
    std::list<TestThread> connections_;
    std::optional<TestThread> acceptor_;
};

}  // namespace velvox
