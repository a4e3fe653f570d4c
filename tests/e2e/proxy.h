// A proxy inside the test. The test's handler decides how it replies: completely, slowly, partly or
// never.
#pragma once

#include <atomic>
#include <functional>
#include <list>
#include <mutex>
#include <set>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "tools/drive/client/driver.h"

namespace velvox::e2e {

using namespace velvox::drive;

/// One accepted connection with its request. It is closed when the handler returns.
class Exchange {
 public:
    Exchange(int socket, std::string request) : socket_(socket), request_(std::move(request)) {}

    /// The requested address: "http://www.veoh.com:80/..." without the port.
    std::string address() const;
    bool asksFor(std::string_view part) const { return address().find(part) != std::string::npos; }

    /// Returns false once the client or the proxy has closed the connection.
    bool write(std::string_view bytes) const;
    bool reply(std::string_view body, std::string_view status = "200 OK",
               std::string_view headers = "") const;
    /// Sends a byte each `pause`, until the text, the connection or the proxy ends.
    void drip(std::string_view bytes, Milliseconds pause) const;
    /// Ends the connection with a TCP reset.
    void reset() const;
    /// Waits until the client or the proxy closes the connection.
    void staySilent() const;
    /// Waits for a time. Returns false if the client or the proxy closes the connection meanwhile.
    bool connectedFor(Milliseconds time) const;
    /// Sends the reply of the replica sites.
    void forward() const;

 private:
    int socket_;
    std::string request_;
};

class Proxy {
 public:
    /// Called on a separate thread for each request. Requests for the news have a separate handler;
    /// the default handler replies that there are none.
    using Handler = std::function<void(const Exchange&)>;

    explicit Proxy(Handler handler, Handler news = noNews);
    Proxy(const Proxy&) = delete;
    Proxy& operator=(const Proxy&) = delete;
    ~Proxy();

    int port() const { return port_; }

    void answerWith(Handler handler);
    /// The addresses requested so far, except those of the news.
    std::vector<std::string> addresses() const;
    bool asked(std::size_t times, Milliseconds time = Driver::patience) const;

    static void noNews(const Exchange& exchange);
    static void forwarding(const Exchange& exchange) { exchange.forward(); }

 private:
    void accept();
    void serve(int socket);

    int port_;
    int listener_;
    mutable std::mutex mutex_;
    Handler handler_;
    Handler news_;
    std::vector<std::string> addresses_;
    std::set<int> sockets_;  ///< of open connections
    std::list<std::thread> connections_;
    std::thread acceptor_;
};

}  // namespace velvox::e2e
