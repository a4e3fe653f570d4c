// A proxy inside the test that answers as the test says: with a reply, slowly, partly or never.
#pragma once

#include <atomic>
#include <functional>
#include <list>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "tools/drive/client/driver.h"

namespace velvox::e2e {

using namespace velvox::drive;

/// One accepted connection with its request, closed with the handler's return.
class Exchange {
 public:
    Exchange(int socket, int stopped, std::string request)
        : socket_(socket), stopped_(stopped), request_(std::move(request)) {}

    /// The address asked for: "http://www.veoh.com:80/..." without the port.
    std::string address() const;
    bool asksFor(std::string_view part) const { return address().find(part) != std::string::npos; }

    /// False once the other side is gone.
    bool write(std::string_view bytes) const;
    bool reply(std::string_view body, std::string_view status = "200 OK",
               std::string_view headers = "") const;
    /// A byte each `pause`, up to the end of the text, of the connection or of the proxy.
    void drip(std::string_view bytes, Milliseconds pause) const;
    /// Ends the connection with a reset instead of an end.
    void reset() const;
    /// Until the other side or the proxy closes.
    void staySilent() const;
    /// Waits; false when the other side has gone or the proxy stops meanwhile.
    bool connectedFor(Milliseconds time) const;
    /// What the replica sites answer.
    void forward() const;

 private:
    int socket_;
    int stopped_;
    std::string request_;
};

class Proxy {
 public:
    /// Called on a thread of its own for each request. The news have their own handler, which
    /// answers that there are none until the test gives another one.
    using Handler = std::function<void(const Exchange&)>;

    explicit Proxy(Handler handler, Handler news = noNews);
    Proxy(const Proxy&) = delete;
    Proxy& operator=(const Proxy&) = delete;
    ~Proxy();

    int port() const { return port_; }

    void answerWith(Handler handler);
    /// Addresses asked for so far, the news left out.
    std::vector<std::string> addresses() const;
    bool asked(std::size_t times, Milliseconds time = Driver::patience) const;

    static void noNews(const Exchange& exchange);
    static void forwarding(const Exchange& exchange) { exchange.forward(); }

 private:
    void accept();
    void serve(int socket);

    int listener_;
    int stopped_;
    int port_;
    mutable std::mutex mutex_;
    Handler handler_;
    Handler news_;
    std::vector<std::string> addresses_;
    std::list<std::thread> connections_;
    std::thread acceptor_;
};

}  // namespace velvox::e2e
