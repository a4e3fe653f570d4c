#pragma once

#include <cstdint>

namespace velvox {

enum class MouseButton : std::int16_t { None = 0, Left = 1, Right = 2, Middle = 4 };

}  // namespace velvox
