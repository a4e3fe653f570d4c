// Which transfers and which events of the browser control count as arrivals at a document.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "app/browser/preview_content.h"

namespace velvox {

inline constexpr std::string_view blankAddress = "about:blank";

/// The state of the preview's navigation. A navigation is resolved by a transfer; where that ends
/// is the arrival. Only after the arrival has been announced may a browser control show the
/// document: a view, whose success or failure changes nothing about the arrival. When the view
/// sets out for another document by itself (a link, a script), that is a new navigation.
///
/// "Top" is the control's own document, as opposed to one of its frames.
class NavigationTracker {
 public:
    /// A new navigation, which supersedes any other. Returns its generation number: results that
    /// carry an older one are ignored.
    unsigned start(std::string_view address);

    /// Whether the result of that navigation's transfer is still wanted.
    bool awaits(unsigned number) const noexcept;

    /// The transfer of navigation `number` has received the header of the final reply, after any
    /// redirects.
    void arrived(unsigned number, std::string address, DocumentInfo document);
    void failed(unsigned number, std::string reason);

    /// True once for each document that has arrived: DocumentComplete is to be raised.
    [[nodiscard]] bool takeAnnouncement() noexcept;

    /// Where the view wants to go by itself, once: to be navigated to.
    [[nodiscard]] std::optional<std::string> takeOwnNavigation() noexcept;

    /// The run is over: without a navigation there is no preview until the next one.
    void runEnded() noexcept { runEnded_ = true; }

    /// Whether a transfer or the view has yet to show a result.
    bool waiting() const noexcept;

    /// Whether a transfer or the view is still at work: a view that shows its document may go on
    /// loading it without end.
    bool busy() const noexcept;

    /// The address arrived at; empty before.
    const std::string& location() const noexcept { return location_; }

    /// What the panel shows where no view covers it.
    PreviewContent content() const;

    // The view.

    /// Whether a control is to be created for the document and asked to show it, once there is
    /// nothing left to announce.
    bool wantsView() const noexcept;
    void viewOpened();
    /// It could not be opened or has not shown anything in time.
    void viewFailed() noexcept;
    bool viewIsShown() const noexcept { return view_ == View::Shown || view_ == View::Finished; }
    bool viewHasFailed() const noexcept { return view_ == View::Failed; }

    // Events of the control that is the view. A result of false cancels what it was about to do.

    bool beforeNavigate(bool top, std::string_view address);
    void navigateComplete(bool top) noexcept;
    /// A frame's document is an arrival too.
    void documentComplete(bool top) noexcept;
    /// A navigation failed with an HTTP status or an HRESULT. Cancelling keeps the control from
    /// putting a page of its own in the document's place.
    bool navigateError(bool top, std::uint32_t status) noexcept;
    /// The control wants to download a file instead of showing it.
    bool fileDownload(bool isDocument) noexcept;

 private:
    enum class State { Idle, Loading, Arrived, Failed };
    enum class View {
        None,
        Opened,   ///< asked to show the document; has not begun
        Loading,  ///< has begun
        Shown,
        Finished,  ///< shows all of it
        Failed,
    };

    State state_ = State::Idle;
    bool runEnded_ = false;
    View view_ = View::None;
    unsigned number_ = 0;
    int announcements_ = 0;
    std::string requested_;
    std::string location_;
    std::string reason_;
    DocumentInfo document_;
    std::string viewAddress_;  ///< as the control writes it
    int reloads_ = 0;          ///< that the view has begun by itself
    std::optional<std::string> ownNavigation_;
};

}  // namespace velvox
