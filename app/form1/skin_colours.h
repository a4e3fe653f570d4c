// The system's colours as the window's own controls use them.
#pragma once

#include "base/colour.h"

namespace velvox {

/// The system's colours, or, where its text colours could not be read on the skin's light surfaces
/// (a dark scheme), those of a plain light scheme. In high contrast nothing has surfaces of the
/// skin, and the system's colours hold whatever they are.
class SkinColours : public SystemColours {
 public:
    /// `system` must outlive this object.
    explicit SkinColours(const SystemColours& system) : system_(system) {}

    void setHighContrast(bool high) noexcept { highContrast_ = high; }

    Rgb colour(int index) const override;

 private:
    const SystemColours& system_;
    bool highContrast_ = false;
};

}  // namespace velvox
