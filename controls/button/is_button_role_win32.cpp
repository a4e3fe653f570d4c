#include "controls/button/is_button_role_win32.h"

#include <oleacc.h>

#include "base/com_win32.h"

namespace velvox {
namespace {

// Annotations: the standard proxy of a button reports more, but is missing on systems where
// merely calling it ends the program.
class SystemRoles : public AccessibleRoles {
 public:
    void announcePushButton(HWND window) override {
        VARIANT role{};
        role.vt = VT_I4;
        role.lVal = ROLE_SYSTEM_PUSHBUTTON;
        if (const auto service = annotations())
            service->SetHwndProp(window, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF,
                                 PROPID_ACC_ROLE, role);
    }
    void withdraw(HWND window) override {
        MSAAPROPID role = PROPID_ACC_ROLE;
        if (const auto service = annotations())
            service->ClearHwndProps(window, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, &role,
                                    1);
    }

 private:
    static ComPtr<IAccPropServices> annotations() {
        ComPtr<IAccPropServices> service;
        CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices,
                         service.putVoid());
        return service;
    }
};

}  // namespace

AccessibleRoles& systemRoles() {
    static SystemRoles roles;
    return roles;
}

}  // namespace velvox
