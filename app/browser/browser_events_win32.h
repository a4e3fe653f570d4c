#pragma once

#include <functional>

#include "app/browser/navigation_tracker.h"
#include "base/com_win32.h"

namespace velvox {

/// Receives the events of the system's web browser control, passes them to the tracker and calls
/// `changed` after each. `changed` runs inside the control, so it must not destroy the control.
class BrowserEvents final : public ComDispatch<> {
 public:
    BrowserEvents(IUnknown* control, NavigationTracker& tracker, std::function<void()> changed)
        : control_(control), tracker_(&tracker), changed_(std::move(changed)) {}

    /// Ignores all later events.
    void disconnect() noexcept { tracker_ = nullptr; }

    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*,
                        UINT*) override;

 private:
    bool find(REFIID id, void** result) noexcept override;
    void dispatch(DISPID id, const DISPPARAMS& parameters);
    bool isTop(const VARIANT& frame) const noexcept;

    IUnknown* control_;  // borrowed; its identity distinguishes the top document from a frame
    NavigationTracker* tracker_;
    std::function<void()> changed_;
};

}  // namespace velvox
