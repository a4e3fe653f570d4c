#include "controls/button/is_button_tracking_win32.h"

#include "base/owned_win32.h"

namespace velvox {
namespace {

class SystemProcedures : public ProcedureFinder {
 public:
    FARPROC find(const char* library, const char* procedure) override {
        // The program imports User32 and Comctl32, so both are always loaded.
        const HMODULE module = GetModuleHandleA(library);
        return module ? GetProcAddress(module, procedure) : nullptr;
    }
};

}  // namespace

static_assert(sizeof(TRACKMOUSEEVENT) == 16);

ProcedureFinder& systemProcedures() {
    static SystemProcedures procedures;
    return procedures;
}

LeaveTracker::LeaveTracker(ProcedureFinder& finder) {
    FARPROC found = finder.find("User32", "TrackMouseEvent");
    available_ = Tracking::UserInterface;
    if (!found) {
        found = finder.find("Comctl32", "_TrackMouseEvent");
        available_ = Tracking::CommonControls;
    }
    if (!found) available_ = Tracking::None;
    track_ = reinterpret_cast<Track>(reinterpret_cast<void*>(found));
}

void LeaveTracker::request(HWND window) const {
    if (!track_) return;
    TRACKMOUSEEVENT event{sizeof(TRACKMOUSEEVENT), TME_LEAVE, window, 0};
    track_(&event);
}

}  // namespace velvox
