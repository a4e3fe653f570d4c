// What screen readers are told of a window where its own text and class do not say it.
#pragma once

#include <windows.h>

#include <oleacc.h>

#include <string>

#include "base/com_win32.h"

// The compiler's header gives this interface no identifier to ask for.
__CRT_UUID_DECL(IAccPropServices, 0x6e26e776, 0x04f0, 0x495d, 0x80, 0xe4, 0x33, 0x30, 0x35, 0x2e,
                0x31, 0x69)

namespace velvox {

/// The system's service that keeps such names: {B5F8350B-0548-48B1-A6EE-88BD00B4A5E7}.
inline constexpr CLSID accessibleNameService = {
    0xB5F8350B, 0x0548, 0x48B1, {0xA6, 0xEE, 0x88, 0xBD, 0x00, 0xB4, 0xA5, 0xE7}};

/// The properties that are set.
inline constexpr MSAAPROPID accessibleNameProperty = {
    0x608D3DF8, 0x8128, 0x4AA7, {0xA4, 0x28, 0xF5, 0x5E, 0x49, 0x26, 0x72, 0x91}};
inline constexpr MSAAPROPID accessibleRoleProperty = {
    0xCB905FF2, 0x7BD1, 0x4C05, {0xB3, 0xC8, 0xE6, 0xC2, 0x41, 0x36, 0x4D, 0x70}};

/// A window's name and role for screen readers, for the length of this object's life. Without the
/// service, or on a thread without COM, screen readers keep to the window's text and class.
class AccessibleName {
 public:
    static constexpr LONG ownRole = 0;  ///< the one that the window's class has

    AccessibleName() noexcept = default;

    /// An empty name leaves the window's text as its name. `role` is a ROLE_SYSTEM_... number.
    AccessibleName(HWND window, const std::wstring& name, LONG role = ownRole) noexcept;
    AccessibleName(AccessibleName&&) noexcept = default;
    AccessibleName& operator=(AccessibleName&& other) noexcept;
    ~AccessibleName();

 private:
    void clear() noexcept;

    ComPtr<IAccPropServices> service_;
    HWND window_ = nullptr;
};

}  // namespace velvox
