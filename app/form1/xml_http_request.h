#pragma once

#include <string>
#include <string_view>

namespace velvox {

/// An asynchronous request whose state is polled. Every operation throws RuntimeFailure (Platform)
/// if the system refuses it.
class XmlHttpRequest {
 public:
    virtual ~XmlHttpRequest() = default;

    virtual void open(std::string_view method, std::string_view address) = 0;
    virtual void send() = 0;
    virtual void abort() = 0;

    /// State of the request; 4 means that the reply is complete.
    virtual int readyState() const = 0;
    virtual std::string responseText() const = 0;
};

}  // namespace velvox
