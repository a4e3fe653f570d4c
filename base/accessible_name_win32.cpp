#include "base/accessible_name_win32.h"

#include <iterator>
#include <map>
#include <utility>

#include "base/com_win32.h"

namespace velvox {
namespace {

constexpr auto client = static_cast<DWORD>(OBJID_CLIENT);

struct Annotation {
    std::wstring name;
    LONG role = ownRole;
    ComPtr<IAccPropServices> service;  ///< null until an assistive program sends WM_GETOBJECT

    // Called only after WM_GETOBJECT has arrived, because creating the service loads its library.
    // If any of these calls fails, screen readers use the window's text and class.
    void apply(HWND window) noexcept {
        if (!service)
            CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER,
                             IID_IAccPropServices, service.putVoid());
        if (!service) return;
        if (!name.empty())
            service->SetHwndPropStr(window, client, CHILDID_SELF, PROPID_ACC_NAME, name.c_str());
        if (role == ownRole) return;
        VARIANT number{};
        V_VT(&number) = VT_I4;
        V_I4(&number) = role;
        service->SetHwndProp(window, client, CHILDID_SELF, PROPID_ACC_ROLE, number);
    }

    void clear(HWND window) noexcept {
        if (!service) return;
        const MSAAPROPID properties[] = {PROPID_ACC_NAME, PROPID_ACC_ROLE};
        service->ClearHwndProps(window, client, CHILDID_SELF, properties,
                                static_cast<int>(std::size(properties)));
    }
};

// Never destroyed, because the program can end while windows exist.
std::map<HWND, Annotation>& annotations() {
    static auto& all = *new std::map<HWND, Annotation>;
    return all;
}

}  // namespace

void setAccessibleName(HWND window, std::wstring name, LONG role) {
    Annotation& own = annotations()[window];
    if (!name.empty()) own.name = std::move(name);
    if (role != ownRole) own.role = role;
    if (own.service) own.apply(window);
}

void onAccessibilityMessage(HWND window, UINT message) noexcept {
    if (message != WM_GETOBJECT && message != WM_NCDESTROY) return;
    const auto found = annotations().find(window);
    if (found == annotations().end()) return;
    Annotation& own = found->second;
    if (message == WM_GETOBJECT && !own.service) own.apply(window);
    if (message == WM_NCDESTROY) {
        own.clear(window);
        annotations().erase(found);
    }
}

}  // namespace velvox
