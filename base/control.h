// The deciding half of a control: its values, and the view that a window registers to follow
// them. Without a view a control is complete and can be tested as it is.
#pragma once

#include <string>
#include <string_view>

namespace velvox {

/// What of a control has changed.
enum class Aspect {
    Place,  ///< left, top, width or height
    Visible,
    Enabled,
    Text,     ///< text or caption
    Face,     ///< anything else that is drawn: colours, font, state
    Items,    ///< entries of a list
    Choice,   ///< selected entry of a list, or selection in a text
    Setting,  ///< a value that is not drawn at once, such as a length limit
};

class ControlView {
 public:
    virtual ~ControlView() = default;

    /// Called after the control has taken its new value.
    virtual void follow(Aspect aspect) = 0;
};

/// A rectangle of the layout, in twips, relative to the container.
struct Place {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    bool operator==(const Place&) const = default;
};

class Control {
 public:
    explicit Control(std::string_view name) : name_(name) {}
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control() = default;

    /// The name by which its container knows it.
    const std::string& Name() const noexcept { return name_; }

    /// Twips. A negative width or height throws InvalidProperty and changes nothing.
    int Left() const noexcept { return place_.left; }
    void Left(int twips);
    int Top() const noexcept { return place_.top; }
    void Top(int twips);
    int Width() const noexcept { return place_.width; }
    void Width(int twips);
    int Height() const noexcept { return place_.height; }
    void Height(int twips);
    Place place() const noexcept { return place_; }
    void Move(const Place& place);

    bool Visible() const noexcept { return visible_; }
    void Visible(bool visible);

    /// The window that follows this control, or none. Held, not owned.
    void setView(ControlView* view) noexcept { view_ = view; }

 protected:
    void changed(Aspect aspect);

    /// Called after the size has changed, before the observer is notified.
    virtual void resized() {}

 private:
    std::string name_;
    Place place_;
    bool visible_ = true;
    ControlView* view_ = nullptr;
};

}  // namespace velvox
