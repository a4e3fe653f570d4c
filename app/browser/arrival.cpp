#include "app/browser/arrival.h"

#include <algorithm>

#include "base/ascii.h"
#include "base/web_address.h"

namespace velvox {
namespace {

// Results of a navigation that reached its document and found nothing to show it with: no class
// for its type, a viewer that cannot be made, a viewer whose installation was declined.
constexpr std::uint32_t noViewer[] = {0x80040154, 0x800C0010, 0x800C0100};

constexpr std::uint32_t firstHttpStatus = 100;
constexpr std::uint32_t lastHttpStatus = 599;

}  // namespace

bool isBrowsable(std::string_view address) {
    return isWebAddress(address) || ascii::equalIgnoringCase(address, "about:blank");
}

bool Arrival::waiting() const noexcept {
    return state_ == State::Requested || state_ == State::Loading || state_ == State::Shown;
}

void Arrival::begin(State state) {
    state_ = state;
    ++number_;
    downloadAddress_.clear();
}

void Arrival::requested() {
    begin(State::Requested);
}

bool Arrival::beforeNavigate(bool top, std::string_view address) {
    const bool follow = isBrowsable(address);
    if (!top) return follow;
    if (state_ == State::Requested)
        state_ = follow ? State::Loading : State::Failed;
    else if (follow)
        begin(State::Loading);
    else if (state_ == State::Loading)
        state_ = State::Failed;  // a redirect to somewhere else
    return follow;
}

void Arrival::navigateComplete(bool top) {
    if (top && state_ == State::Loading) state_ = State::Shown;
}

bool Arrival::documentComplete(bool top) {
    // Frames finish before and, when they reload, after the document that holds them.
    if (!top) return state_ == State::Shown || state_ == State::Arrived;
    if (state_ != State::Loading && state_ != State::Shown) return false;
    state_ = State::Arrived;
    return true;
}

Arrival::Verdict Arrival::navigateError(bool top, std::uint32_t status) {
    // The server's own error page follows and is a document like any other.
    if (status >= firstHttpStatus && status <= lastHttpStatus) return {};
    if (!top) return {.cancel = true};
    if (state_ != State::Loading && state_ != State::Shown) return {.cancel = true};
    if (std::ranges::find(noViewer, status) == std::end(noViewer)) {
        state_ = State::Failed;
        return {.cancel = true};
    }
    state_ = State::Unviewable;
    return {.arrival = true, .cancel = true};
}

Arrival::Verdict Arrival::fileDownload(bool isDocument) const {
    return {.cancel = !isDocument && state_ != State::Loading};
}

bool Arrival::download(std::string_view address) {
    if (state_ != State::Loading) return false;
    state_ = State::Unviewable;
    downloadAddress_ = address;
    return true;
}

void Arrival::abandoned() {
    // A document that is shown has been reached; stopping it makes the control finish it.
    if (state_ == State::Requested || state_ == State::Loading) state_ = State::Failed;
}

}  // namespace velvox
