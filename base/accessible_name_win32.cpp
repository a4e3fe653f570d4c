#include "base/accessible_name_win32.h"

#include <commctrl.h>

#include <iterator>
#include <memory>
#include <utility>

#include "base/com_win32.h"

namespace velvox {
namespace {

constexpr auto client = static_cast<DWORD>(OBJID_CLIENT);
constexpr UINT_PTR subclassId = 0x4163;

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

LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                           DWORD_PTR annotation) noexcept {
    auto* const own = reinterpret_cast<Annotation*>(annotation);
    if (message == WM_GETOBJECT && !own->service) own->apply(window);
    if (message == WM_NCDESTROY) {
        RemoveWindowSubclass(window, &procedure, id);
        own->clear(window);
        delete own;
    }
    return DefSubclassProc(window, message, wParam, lParam);
}

}  // namespace

void setAccessibleName(HWND window, std::wstring name, LONG role) {
    DWORD_PTR known = 0;
    GetWindowSubclass(window, &procedure, subclassId, &known);
    auto* own = reinterpret_cast<Annotation*>(known);
    if (!own) {
        auto made = std::make_unique<Annotation>();
        if (!SetWindowSubclass(window, &procedure, subclassId,
                               reinterpret_cast<DWORD_PTR>(made.get())))
            return;
        own = made.release();
    }
    if (!name.empty()) own->name = std::move(name);
    if (role != ownRole) own->role = role;
    if (own->service) own->apply(window);
}

}  // namespace velvox
