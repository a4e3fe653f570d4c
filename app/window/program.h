#pragma once

#include "app/version.h"

namespace velvox {

inline constexpr wchar_t programTitle[] = L"Velvox";
inline constexpr wchar_t windowTitle[] = L"Velvox " VELVOX_VERSION;

}  // namespace velvox
