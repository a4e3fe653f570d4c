#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "app/browser/preview_content.h"

namespace velvox {

inline constexpr std::string_view blankAddress = "about:blank";

/// Tracks the navigation of the preview. A transfer resolves the requested address, and the address
/// of its final reply is where the navigation arrives. After the arrival has been announced, a
/// browser control (the "view") may show the document; its success or failure changes nothing about
/// the arrival. If the view tries to load another document by itself (a link, a script), this is
/// prevented, and a new navigation to the address of that document starts.
///
/// "Top" is the document of the control itself, as opposed to the document of a frame.
class NavigationTracker {
 public:
    /// Starts a navigation, which replaces any other. Returns its generation number: results with
    /// an older number are ignored.
    unsigned start(std::string_view address);

    /// Whether the transfer of navigation `number` is still awaited.
    bool awaits(unsigned number) const noexcept;

    /// Called when the transfer of navigation `number` has received the header of the final reply,
    /// after any redirects.
    void arrived(unsigned number, std::string address, DocumentInfo document);
    void failed(unsigned number, std::string reason);

    /// Returns true once for each document that has arrived. The caller then raises
    /// DocumentComplete.
    [[nodiscard]] bool takeAnnouncement() noexcept;

    /// Returns, once, the address that the view has tried to load by itself. The caller navigates
    /// to it.
    [[nodiscard]] std::optional<std::string> takeOwnNavigation() noexcept;

    /// Called when a run has ended. If the run has not navigated, there is no preview until the
    /// next navigation.
    void runEnded() noexcept { runEnded_ = true; }

    /// Whether the transfer or the view has neither succeeded nor failed yet.
    bool waiting() const noexcept;

    /// Whether the transfer or the view is still loading. A view that already shows its document
    /// may go on loading it without end.
    bool busy() const noexcept;

    /// The address at which the navigation has arrived; empty before the arrival.
    const std::string& location() const noexcept { return location_; }

    /// What the preview area shows while no view covers it.
    PreviewContent content() const;

    // The view: a browser control that shows the document.

    /// Whether the document has arrived and needs a view. Call it only after takeAnnouncement has
    /// returned false.
    bool wantsView() const noexcept;
    void viewOpened();
    /// Called when the view could not be opened or has not shown anything in time.
    void viewFailed() noexcept;
    bool viewIsShown() const noexcept { return view_ == View::Shown || view_ == View::Finished; }
    bool viewHasFailed() const noexcept { return view_ == View::Failed; }

    // Events of the view's control. Returning false cancels the navigation or download in question.

    bool beforeNavigate(bool top, std::string_view address);
    void navigateComplete(bool top) noexcept;
    /// A document in a frame is announced like an arrival once it is complete.
    void documentComplete(bool top) noexcept;
    /// A navigation failed with an HTTP status or an HRESULT. Cancelling keeps the control from
    /// showing its own error page in place of the document.
    bool navigateError(bool top, std::uint32_t status) noexcept;
    /// The control is about to download a file. `isDocument` means that it will show the file.
    bool fileDownload(bool isDocument) noexcept;

 private:
    enum class State { Idle, Loading, Arrived, Failed };
    enum class View {
        None,
        Opened,   ///< has been asked to show the document
        Loading,  ///< has started to load the document
        Shown,
        Finished,  ///< has loaded the whole document
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
    std::string viewAddress_;  ///< address of the document as the control reports it
    int reloads_ = 0;          ///< number of reloads that the view has started by itself
    std::optional<std::string> ownNavigation_;
};

}  // namespace velvox
