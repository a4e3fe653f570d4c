// The portable part of a control: its values, and the observer (usually a window) that it notifies
// of changes. A control works without an observer, so it can be tested without a window.
#pragma once

#include <string>
#include <string_view>

#include "base/geometry.h"

namespace velvox {

enum class ControlChange {
    Bounds,  ///< left, top, width or height
    Visible,
    Enabled,
    Text,        ///< text or caption
    Appearance,  ///< anything else that is drawn: colours, font, state
    Items,       ///< entries of a list
    Selection,   ///< selected entry of a list, or selection in a text
    Other,       ///< a value that is not drawn at once, such as a length limit
};

class ControlObserver {
 public:
    virtual ~ControlObserver() = default;

    /// Called after the control has taken its new value.
    virtual void controlChanged(ControlChange change) = 0;
};

class Control {
 public:
    explicit Control(std::string_view name) : name_(name) {}
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control() = default;

    /// The control's name within its container.
    const std::string& Name() const noexcept { return name_; }

    /// In twips. A negative width or height throws InvalidProperty and changes nothing.
    int Left() const noexcept { return bounds_.left; }
    void Left(int twips);
    int Top() const noexcept { return bounds_.top; }
    void Top(int twips);
    int Width() const noexcept { return bounds_.width; }
    void Width(int twips);
    int Height() const noexcept { return bounds_.height; }
    void Height(int twips);
    Bounds bounds() const noexcept { return bounds_; }
    void Move(const Bounds& bounds);

    bool Visible() const noexcept { return visible_; }
    void Visible(bool visible);

    /// Sets or, with null, removes the observer. The control does not own it.
    void setObserver(ControlObserver* observer) noexcept { observer_ = observer; }

 protected:
    void changed(ControlChange change);

    /// Called after the size has changed, before the observer is notified.
    virtual void resized() {}

 private:
    std::string name_;
    Bounds bounds_;
    bool visible_ = true;
    ControlObserver* observer_ = nullptr;
};

}  // namespace velvox
