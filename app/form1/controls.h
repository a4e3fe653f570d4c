// The simple controls of the main window: labels, images, lines, hidden texts, the list and the
// timers.
#pragma once

#include <cstddef>
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "base/colour.h"
#include "base/control.h"
#include "base/font.h"
#include "controls/picture_box.h"

namespace velvox {

class Label : public Control, public MouseEvents {
 public:
    using Control::Control;

    const std::string& Caption() const noexcept { return caption_; }
    void Caption(std::string_view text);

    OleColour ForeColor() const noexcept { return foreColor_; }
    void ForeColor(OleColour colour);

    const Font& font() const noexcept { return font_; }
    void font(const Font& font);

    std::function<void()> Click;

 private:
    std::string caption_;
    OleColour foreColor_ = systemColour(ButtonTextColour);
    Font font_;
};

/// A picture of the skin, in its own size or stretched to its bounds.
class Image : public Control, public MouseEvents {
 public:
    using Control::Control;
};

/// A decorative line between two points, in twips.
struct Line {
    std::string_view name;
    int x1 = 0;
    int y1 = 0;
    int x2 = 0;
    int y2 = 0;
};

/// Invisible text buffer of a run. append() is amortised O(n).
class HiddenText {
 public:
    /// Maximum bytes after an append(), far more than the result pane shows. A hostile page could
    /// otherwise fill the memory with links.
    static constexpr std::size_t maxBytes = 64'000'000;

    const std::string& Text() const noexcept { return text_; }
    void Text(std::string text);
    /// `pieces` must not point into Text(). Throws Overflow if the text would exceed maxBytes.
    void append(std::initializer_list<std::string_view> pieces);

    /// Called after every assignment, but not after append().
    std::function<void()> Change;

 private:
    std::string text_;
};

/// A drop-down list whose text is always one of its entries.
class ComboBox : public Control {
 public:
    using Control::Control;

    void AddItem(std::string_view text);
    const std::vector<std::string>& items() const noexcept { return items_; }

    /// Index of the selected entry, or -1.
    int ListIndex() const noexcept { return index_; }

    /// Selects an entry, or none for -1, and raises Click even if the selection stays the same.
    /// Throws InvalidProperty for any other index.
    void ListIndex(int index);

    /// Text of the selected entry; empty if none is selected.
    std::string_view Text() const;

    std::function<void()> Click;

 private:
    std::vector<std::string> items_;
    int index_ = -1;
};

/// Ticks every Interval milliseconds while enabled. Enabling a timer again starts a new interval.
class Timer {
 public:
    explicit Timer(std::string_view name) : name_(name) {}
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

    const std::string& Name() const noexcept { return name_; }
    unsigned Interval() const noexcept { return interval_; }
    void Interval(unsigned milliseconds);
    bool Enabled() const noexcept { return enabled_; }
    void Enabled(bool enabled);
    void setObserver(ControlObserver* observer) noexcept { observer_ = observer; }

    std::function<void()> Tick;

 private:
    std::string name_;
    unsigned interval_ = 0;
    bool enabled_ = false;
    ControlObserver* observer_ = nullptr;
};

}  // namespace velvox
