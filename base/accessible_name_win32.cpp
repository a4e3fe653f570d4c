#include "base/accessible_name_win32.h"

#include <iterator>

namespace velvox {
namespace {

constexpr auto client = static_cast<DWORD>(OBJID_CLIENT);

}  // namespace

AccessibleName::AccessibleName(HWND window, const std::wstring& name, LONG role) noexcept
    : window_(window) {
    // When any of these calls fails, screen readers keep to the window's text and class.
    CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices,
                     service_.putVoid());
    if (!service_) return;
    if (!name.empty())
        service_->SetHwndPropStr(window, client, CHILDID_SELF, PROPID_ACC_NAME, name.c_str());
    if (role == ownRole) return;
    VARIANT number{};
    V_VT(&number) = VT_I4;
    V_I4(&number) = role;
    service_->SetHwndProp(window, client, CHILDID_SELF, PROPID_ACC_ROLE, number);
}

AccessibleName& AccessibleName::operator=(AccessibleName&& other) noexcept {
    if (this == &other) return *this;
    clear();
    service_ = std::move(other.service_);
    window_ = other.window_;
    return *this;
}

AccessibleName::~AccessibleName() {
    clear();
}

void AccessibleName::clear() noexcept {
    if (!service_) return;
    const MSAAPROPID properties[] = {PROPID_ACC_NAME, PROPID_ACC_ROLE};
    service_->ClearHwndProps(window_, client, CHILDID_SELF, properties,
                             static_cast<int>(std::size(properties)));
    service_.reset();
}

}  // namespace velvox
