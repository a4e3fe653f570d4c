#pragma once

#include <memory>

namespace velvox {

/// A picture of a control. Portable code only passes it on and asks whether it has an image; a
/// derived class in the Win32 layer owns the pixels.
class Picture {
 public:
    virtual ~Picture() = default;

    /// False for the empty picture of a new control.
    virtual bool hasImage() const = 0;
};

using PicturePtr = std::shared_ptr<const Picture>;

}  // namespace velvox
