#pragma once

#include <memory>

namespace velvox {

/// A picture that a control holds. The portable code only passes it on and asks whether there is
/// one; the platform's own class owns the pixels.
class Picture {
 public:
    virtual ~Picture() = default;

    /// False for the "empty picture" that a fresh control holds.
    virtual bool hasImage() const = 0;
};

using PicturePtr = std::shared_ptr<const Picture>;

}  // namespace velvox
