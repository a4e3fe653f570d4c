#include "app/browser/navigation_tracker.h"

#include <utility>

#include "base/ascii.h"
#include "base/web_address.h"

namespace velvox {
namespace {

constexpr std::uint32_t firstHttpStatus = 100;
constexpr std::uint32_t lastHttpStatus = 599;

constexpr int maxReloads = 10;

/// Whether the preview may load an address: http, https or the blank page.
bool isBrowsable(std::string_view address) {
    return isWebAddress(address) || ascii::equalIgnoringCase(address, blankAddress);
}

std::string_view withoutFragment(std::string_view address) {
    return address.substr(0, address.find('#'));
}

}  // namespace

unsigned NavigationTracker::start(std::string_view address) {
    const unsigned next = number_ + 1;
    const std::string requested(address);
    *this = {};
    state_ = State::Loading;
    number_ = next;
    requested_ = requested;
    return next;
}

bool NavigationTracker::awaits(unsigned number) const noexcept {
    return state_ == State::Loading && number == number_;
}

void NavigationTracker::arrived(unsigned number, std::string address, DocumentInfo document) {
    if (!awaits(number)) return;
    state_ = State::Arrived;
    location_ = std::move(address);
    document_ = std::move(document);
    announcements_ = 1;
}

void NavigationTracker::failed(unsigned number, std::string reason) {
    if (!awaits(number)) return;
    state_ = State::Failed;
    reason_ = std::move(reason);
}

bool NavigationTracker::takeAnnouncement() noexcept {
    if (announcements_ == 0) return false;
    --announcements_;
    return true;
}

std::optional<std::string> NavigationTracker::takeOwnNavigation() noexcept {
    return std::exchange(ownNavigation_, std::nullopt);
}

bool NavigationTracker::waiting() const noexcept {
    return state_ == State::Loading || view_ == View::Opened || view_ == View::Loading;
}

bool NavigationTracker::busy() const noexcept {
    return waiting() || view_ == View::Shown;
}

PreviewContent NavigationTracker::content() const {
    using Kind = PreviewContent::Kind;
    if (waiting()) return {.kind = Kind::Loading};
    if (state_ == State::Failed)
        return {.kind = Kind::Unreachable, .address = requested_, .reason = reason_};
    if (state_ == State::Idle || location_ == blankAddress)
        return {.kind = runEnded_ ? Kind::NoPreview : Kind::Blank};
    return {.kind = isRenderable(document_.type) ? Kind::NotRendered : Kind::Unviewable,
            .address = location_,
            .document = document_};
}

bool NavigationTracker::wantsView() const noexcept {
    return state_ == State::Arrived && view_ == View::None && isRenderable(document_.type);
}

void NavigationTracker::viewOpened() {
    view_ = View::Opened;
}

void NavigationTracker::viewFailed() noexcept {
    view_ = View::Failed;
}

bool NavigationTracker::beforeNavigate(bool top, std::string_view address) {
    if (!top) return isBrowsable(address);
    if (view_ == View::Opened) {
        view_ = View::Loading;
        viewAddress_ = address;
        return true;
    }
    if (view_ != View::Loading && !viewIsShown()) return false;
    // A jump to a fragment of the page and a reload of the page are no new navigation. Reloads are
    // limited, because a page could reload itself without end.
    if (withoutFragment(address) == withoutFragment(viewAddress_))
        return address != viewAddress_ || ++reloads_ <= maxReloads;
    if (isBrowsable(address)) ownNavigation_ = address;
    return false;
}

void NavigationTracker::navigateComplete(bool top) noexcept {
    if (top && view_ == View::Loading) view_ = View::Shown;
}

void NavigationTracker::documentComplete(bool top) noexcept {
    navigateComplete(top);
    if (top && view_ == View::Shown) view_ = View::Finished;
    if (!top && viewIsShown()) ++announcements_;
}

bool NavigationTracker::navigateError(bool top, std::uint32_t status) noexcept {
    // For an HTTP error status, the server's own error page follows. It is shown like any other
    // document.
    if (status >= firstHttpStatus && status <= lastHttpStatus) return true;
    if (top && view_ == View::Loading) view_ = View::Failed;
    return false;
}

bool NavigationTracker::fileDownload(bool isDocument) noexcept {
    if (!isDocument && view_ == View::Loading) view_ = View::Failed;
    return isDocument;
}

}  // namespace velvox
