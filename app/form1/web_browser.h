#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace velvox {

/// The preview browser.
class WebBrowser {
 public:
    virtual ~WebBrowser() = default;

    /// Starts loading an address, in place of a navigation in progress, and returns at once. Throws
    /// RuntimeFailure (Platform) if no navigation can be started.
    virtual void Navigate(std::string_view address) = 0;

    /// The address of the loaded document, after redirects, byte for byte.
    virtual std::string LocationURL() const = 0;

    virtual bool Offline() const = 0;

    /// Raised for every document that has finished loading.
    std::function<void()> DocumentComplete;
};

}  // namespace velvox
