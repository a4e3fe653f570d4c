#include "tests/app/local_server_win32.h"

#include <stdexcept>

namespace velvox {

LocalServer::LocalServer(Answers answers) : answers_(std::move(answers)) {
    WSADATA data;
    if (WSAStartup(MAKEWORD(2, 2), &data) != 0) throw std::runtime_error("WSAStartup failed");
    listener_ = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in at{};
    at.sin_family = AF_INET;
    at.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    int length = sizeof at;
    auto* const name = reinterpret_cast<sockaddr*>(&at);
    if (bind(listener_, name, length) != 0 || listen(listener_, 16) != 0 ||
        getsockname(listener_, name, &length) != 0)
        throw std::runtime_error("The local server cannot listen");
    port_ = ntohs(at.sin_port);
    thread_ = std::thread([this] { serve(); });
}

LocalServer::~LocalServer() {
    // A last connection wakes the thread; closing a socket under accept() need not.
    const SOCKET waker = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in at{};
    at.sin_family = AF_INET;
    at.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    at.sin_port = htons(port_);
    {
        const std::lock_guard lock(mutex_);
        answers_.clear();
    }
    connect(waker, reinterpret_cast<sockaddr*>(&at), sizeof at);
    send(waker, "STOP", 4, 0);
    thread_.join();
    closesocket(waker);
    for (const SOCKET client : silent_) closesocket(client);
    closesocket(listener_);
    WSACleanup();
}

std::string LocalServer::address(const std::string& path) const {
    return "http://127.0.0.1:" + std::to_string(port_) + path;
}

std::vector<std::string> LocalServer::requests() const {
    const std::lock_guard lock(mutex_);
    return requests_;
}

std::string LocalServer::page(const std::string& status, const std::string& type,
                              const std::string& body, const std::string& moreHeader) {
    return "HTTP/1.1 " + status + "\r\nContent-Type: " + type +
           "\r\nContent-Length: " + std::to_string(body.size()) + "\r\nConnection: close\r\n" +
           moreHeader + "\r\n" + body;
}

std::string LocalServer::redirect(const std::string& status, const std::string& location) {
    return page(status, "text/html", "", "Location: " + location + "\r\n");
}

void LocalServer::serve() {
    for (;;) {
        const SOCKET client = accept(listener_, nullptr, nullptr);
        if (client == INVALID_SOCKET) return;
        const std::lock_guard lock(mutex_);
        if (answers_.empty()) {
            closesocket(client);
            return;
        }
        answer(client);
    }
}

void LocalServer::answer(SOCKET client) {
    std::string request;
    char chunk[4096];
    while (request.find("\r\n\r\n") == request.npos) {
        const int got = recv(client, chunk, sizeof chunk, 0);
        if (got <= 0) break;
        request.append(chunk, static_cast<std::size_t>(got));
    }
    const std::string line = request.substr(0, request.find("\r\n"));
    requests_.push_back(line);
    const auto from = line.find(' ');
    const std::string path =
        from == line.npos ? "" : line.substr(from + 1, line.find(' ', from + 1) - from - 1);
    const auto found = answers_.find(path);
    const std::string reply = found == answers_.end()
                                  ? page("404 Not Found", "text/html", "<p>Not here</p>")
                                  : found->second;
    if (reply == silence) {
        silent_.push_back(client);
        return;
    }
    const bool headerOnly = line.starts_with("HEAD ");
    const auto size = headerOnly ? reply.find("\r\n\r\n") + 4 : reply.size();
    send(client, reply.data(), static_cast<int>(size), 0);
    shutdown(client, SD_SEND);
    closesocket(client);
}

}  // namespace velvox
