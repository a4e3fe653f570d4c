#pragma once

#include "base/colour.h"

namespace velvox {

/// The system colours for the window's controls. If the system's text colours are not readable on
/// the light surfaces of the skin (a dark scheme), colours of a plain light scheme replace them. In
/// high contrast the skin is not drawn, so the system colours are used unchanged.
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
