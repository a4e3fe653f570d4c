#pragma once

namespace velvox {

inline constexpr wchar_t programTitle[] = L"Velvox";
inline constexpr wchar_t windowTitle[] = L"Velvox 1.00";

}  // namespace velvox
