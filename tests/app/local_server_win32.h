// A small web server inside a test program, for what a real one will not do on request: never
// answering, dropping the connection, odd Location headers.
#pragma once

#include <winsock2.h>

#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace velvox {

class LocalServer {
 public:
    /// What a path is answered with. An empty answer closes the connection without one.
    using Answers = std::map<std::string, std::string>;

    /// A path that is answered with this text is never answered.
    static constexpr const char* silence = "(silence)";

    explicit LocalServer(Answers answers);
    LocalServer(const LocalServer&) = delete;
    LocalServer& operator=(const LocalServer&) = delete;
    ~LocalServer();

    /// "http://127.0.0.1:PORT" followed by a path.
    std::string address(const std::string& path) const;

    /// The request lines so far.
    std::vector<std::string> requests() const;

    static std::string page(const std::string& status, const std::string& type,
                            const std::string& body, const std::string& moreHeader = {});
    static std::string redirect(const std::string& status, const std::string& location);

 private:
    void serve();
    void answer(SOCKET client);

    Answers answers_;
    SOCKET listener_ = INVALID_SOCKET;
    unsigned short port_ = 0;
    mutable std::mutex mutex_;
    std::vector<std::string> requests_;
    std::vector<SOCKET> silent_;
    std::thread thread_;
};

}  // namespace velvox
