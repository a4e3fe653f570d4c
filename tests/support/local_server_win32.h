// A server on the loopback that answers as a test says: with a reply, slowly, partly or never.
#pragma once

#include <winsock2.h>

#include <atomic>
#include <functional>
#include <list>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace velvox {

/// One accepted connection, closed with its handler's return.
class Connection {
 public:
    Connection(SOCKET socket, const std::atomic<bool>& stopped)
        : socket_(socket), stopped_(stopped) {}

    /// False once the other side is gone.
    bool write(std::string_view bytes) const;

    /// Waits that long, or until the server stops. False when it has stopped.
    bool wait(unsigned milliseconds) const;

 private:
    SOCKET socket_;
    const std::atomic<bool>& stopped_;
};

class LocalServer {
 public:
    /// Called on a thread of its own for each request, with the request's header text.
    using Handler = std::function<void(const Connection& connection, const std::string& request)>;

    explicit LocalServer(Handler handler);
    LocalServer(const LocalServer&) = delete;
    LocalServer& operator=(const LocalServer&) = delete;
    ~LocalServer();

    /// "http://127.0.0.1:PORT" and a path.
    std::string address(std::string_view path = "/") const;

    /// The request texts so far.
    std::vector<std::string> requests() const;

    static std::string reply(std::string_view body, std::string_view status = "200 OK",
                             std::string_view headers = "");

 private:
    void accept();
    void serve(SOCKET socket);

    Handler handler_;
    SOCKET listener_;
    int port_ = 0;
    std::atomic<bool> stopped_{false};
    mutable std::mutex mutex_;
    std::vector<std::string> requests_;
    std::list<std::thread> connections_;
    std::thread acceptor_;
};

}  // namespace velvox
