// Which sequence of the browser control's events means that it has arrived at a document.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace velvox {

/// Follows the control's events and decides what each of them means. "Top" is the control's own
/// document, as opposed to one of its frames. An arrival is reported once for each document: a
/// page (whatever its HTTP status), a frame's page, and also a document that nothing on this
/// system can show. A host that cannot be reached, a refused address and a navigation that a
/// newer one has superseded are none.
class Arrival {
 public:
    enum class State {
        Idle,        ///< nothing was asked for yet
        Requested,   ///< asked for; what the control still tells is about the document before
        Loading,     ///< the control has begun
        Shown,       ///< the control shows the document but has not finished it
        Arrived,     ///< finished
        Unviewable,  ///< arrived at a document that nothing can show
        Failed,      ///< it will not arrive
    };

    State state() const noexcept { return state_; }

    /// Whether a navigation is under way that may still arrive.
    bool waiting() const noexcept;

    /// Changes with every navigation: what was told under an older number is stale.
    unsigned number() const noexcept { return number_; }

    /// The address of a document that the control wanted to download, or empty: the control itself
    /// then still tells the address before.
    const std::string& downloadAddress() const noexcept { return downloadAddress_; }

    /// A navigation is asked for; it supersedes any other.
    void requested();

    /// The control is about to navigate, by itself (a link, a script) or because it was asked to.
    /// False: the address is none that a browser should follow, and the navigation is cancelled.
    bool beforeNavigate(bool top, std::string_view address);

    /// The control has the document and shows it.
    void navigateComplete(bool top);

    /// The control has finished a document. True: an arrival.
    [[nodiscard]] bool documentComplete(bool top);

    struct Verdict {
        bool arrival = false;
        bool cancel = false;
    };

    /// A navigation failed with an HTTP status or an HRESULT. Cancelling keeps the control from
    /// putting a page of its own in the document's place.
    [[nodiscard]] Verdict navigateError(bool top, std::uint32_t status);

    /// The control wants to download a file instead of showing it. With nothing to cancel the
    /// download comes to `download`, which knows the address.
    [[nodiscard]] Verdict fileDownload(bool isDocument) const;

    /// A download is handed over; it is dropped. True: it is the document that was asked for.
    [[nodiscard]] bool download(std::string_view address);

    /// The server did not answer in time, or the navigation could not be started.
    void abandoned();

 private:
    void begin(State state);

    State state_ = State::Idle;
    unsigned number_ = 0;
    std::string downloadAddress_;
};

/// Whether the preview follows an address: a web address or the blank page.
bool isBrowsable(std::string_view address);

}  // namespace velvox
