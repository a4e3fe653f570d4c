// The system's colours as the window's own controls use them.
#pragma once

#include "base/colour.h"

namespace velvox {

/// The system's colours, or, where its text colours could not be read on the skin's light surfaces
/// (a dark scheme), those of a plain light scheme. In high contrast no surface is the
/// skin, so the system's colours are used unchanged.
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
