// Fakes of the system colours, the host and the observer of a push button.
#pragma once

#include <string>
#include <vector>

#include "controls/button/is_button.h"

namespace velvox {

/// Each system colour has a different value, so that a wrong index is detected. The tool tip's text
/// is black (0), as on most systems, because 0 must count as a colour.
struct NumberedColours : SystemColours {
    static constexpr Rgb of(int index) {
        return index == InfoTextColour ? 0 : rgb(0x10 + index, 0x40 + index, 0x80 + index);
    }
    Rgb colour(int index) const override { return of(index); }
};

struct SomePicture : Picture {
    bool hasImage() const override { return true; }
};

/// Records the requests and events of a button, one letter each, and its change notifications.
struct ButtonLog : ButtonHost, ControlObserver {
    explicit ButtonLog(isButton& button) {
        button.setHost(this);
        button.setObserver(this);
        button.Click = [this] { text += 'C'; };
        button.MouseEnter = [this] { text += 'E'; };
        button.MouseLeave = [this] { text += 'L'; };
    }

    void requestLeaveNotice() override { text += 't'; }
    void showToolTip() override { text += 'T'; }
    void showAbout() override { text += 'A'; }
    void openAddress(std::string_view address) override { text += address; }
    void controlChanged(ControlChange change) override {
        changes.push_back(change);
        text += '.';
    }

    std::string text;
    std::vector<ControlChange> changes;
};

}  // namespace velvox
