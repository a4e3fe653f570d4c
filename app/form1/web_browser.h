#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace velvox {

/// The preview browser.
class WebBrowser {
 public:
    virtual ~WebBrowser() = default;

    /// Starts loading an address and returns at once; supersedes a navigation under way. Throws
    /// RuntimeFailure (Platform) when no navigation can be started.
    virtual void Navigate(std::string_view address) = 0;

    /// The address of the document it shows, after redirects, byte for byte.
    virtual std::string LocationURL() const = 0;

    virtual bool Offline() const = 0;

    /// Raised for every document it has finished loading.
    std::function<void()> DocumentComplete;
};

}  // namespace velvox
