#include "base/accessible_name_win32.h"

#include <gtest/gtest.h>

#include <map>

#include "app/form1/form1_design.h"
#include "app/pane/result_pane_win32.h"
#include "app/window/form1_win32.h"
#include "tests/support/window_fixture_win32.h"

// The compiler's header does not define the identifier of this interface.
__CRT_UUID_DECL(IAccPropServices, 0x6e26e776, 0x04f0, 0x495d, 0x80, 0xe4, 0x33, 0x30, 0x35, 0x2e,
                0x31, 0x69)

namespace velvox {
namespace {

struct Spoken {
    std::string name;
    LONG role = 0;
};

using Record = std::map<HWND, Spoken>;

/// A fake of the system's service, which records the names and roles that are set and cleared. It
/// is its own class factory.
class FakeService final : public ComObject<IAccPropServices, IClassFactory> {
 public:
    Record record;

    STDMETHODIMP CreateInstance(IUnknown*, REFIID id, void** result) override {
        return QueryInterface(id, result);
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }
    STDMETHODIMP SetHwndPropStr(HWND window, DWORD object, DWORD child, MSAAPROPID property,
                                LPCWSTR text) override {
        EXPECT_TRUE(property == PROPID_ACC_NAME);
        whole(window, object, child).name = narrow(text);
        return S_OK;
    }
    STDMETHODIMP SetHwndProp(HWND window, DWORD object, DWORD child, MSAAPROPID property,
                             VARIANT value) override {
        EXPECT_TRUE(property == PROPID_ACC_ROLE && V_VT(&value) == VT_I4);
        whole(window, object, child).role = V_I4(&value);
        return S_OK;
    }
    STDMETHODIMP ClearHwndProps(HWND window, DWORD object, DWORD child, const MSAAPROPID*,
                                int count) override {
        whole(window, object, child) = {};
        if (count == 2) record.erase(window);
        return S_OK;
    }

    // Methods of the interface that Velvox does not use.
    using Ids = const MSAAPROPID*;
    using Bytes = const BYTE*;
#define VELVOX_UNUSED(name, ...)              \
    STDMETHODIMP name(__VA_ARGS__) override { \
        return E_NOTIMPL;                     \
    }
    VELVOX_UNUSED(SetPropValue, Bytes, DWORD, MSAAPROPID, VARIANT)
    VELVOX_UNUSED(SetPropServer, Bytes, DWORD, Ids, int, IAccPropServer*, AnnoScope)
    VELVOX_UNUSED(ClearProps, Bytes, DWORD, Ids, int)
    VELVOX_UNUSED(SetHwndPropServer, HWND, DWORD, DWORD, Ids, int, IAccPropServer*, AnnoScope)
    VELVOX_UNUSED(ComposeHwndIdentityString, HWND, DWORD, DWORD, BYTE**, DWORD*)
    VELVOX_UNUSED(DecomposeHwndIdentityString, Bytes, DWORD, HWND*, DWORD*, DWORD*)
    VELVOX_UNUSED(SetHmenuProp, HMENU, DWORD, MSAAPROPID, VARIANT)
    VELVOX_UNUSED(SetHmenuPropStr, HMENU, DWORD, MSAAPROPID, LPCWSTR)
    VELVOX_UNUSED(SetHmenuPropServer, HMENU, DWORD, Ids, int, IAccPropServer*, AnnoScope)
    VELVOX_UNUSED(ClearHmenuProps, HMENU, DWORD, Ids, int)
    VELVOX_UNUSED(ComposeHmenuIdentityString, HMENU, DWORD, BYTE**, DWORD*)
    VELVOX_UNUSED(DecomposeHmenuIdentityString, Bytes, DWORD, HMENU*, DWORD*)
#undef VELVOX_UNUSED

 private:
    Spoken& whole(HWND window, DWORD object, DWORD child) {
        EXPECT_TRUE(object == static_cast<DWORD>(OBJID_CLIENT) && child == CHILDID_SELF);
        return record[window];
    }
};

/// Replaces the system's service by the fake for this thread.
class AccessibleNameTest : public testing::Test {
 protected:
    AccessibleNameTest() {
        IClassFactory* const factory = service_.get();
        requireSuccess(CoRegisterClassObject(CLSID_AccPropServices, factory, CLSCTX_INPROC_SERVER,
                                             REGCLS_MULTIPLEUSE, &cookie_),
                       "CoRegisterClassObject");
    }
    ~AccessibleNameTest() override {
        EXPECT_TRUE(record_.empty()) << "a name outlived its window";
        CoRevokeClassObject(cookie_);
    }

    /// The name and role that a screen reader gets from a window. They are set only when it asks.
    Spoken spokenBy(HWND window) {
        SendMessageW(window, WM_GETOBJECT, 0, OBJID_CLIENT);
        return record_.contains(window) ? record_[window] : Spoken{};
    }

    /// The names and roles of the tab stops below a window, as a screen reader gets them.
    std::map<std::string, LONG> stopsBelow(HWND parent) {
        std::map<std::string, LONG> roles;
        for (HWND window = GetWindow(parent, GW_CHILD); window;
             window = GetWindow(window, GW_HWNDNEXT)) {
            roles.merge(stopsBelow(window));
            if ((GetWindowLongW(window, GWL_STYLE) & WS_TABSTOP) == 0) continue;
            const Spoken spoken = spokenBy(window);
            // The system gives a list the name of the label before it.
            const bool isList = GetDlgCtrlID(window) == static_cast<int>(controlId("ds"));
            const HWND namesake = isList ? GetWindow(window, GW_HWNDPREV) : window;
            roles[spoken.name.empty() ? windowText(namesake) : spoken.name] = spoken.role;
        }
        return roles;
    }

    OleScope ole_;
    ComPtr<FakeService> service_{new FakeService};
    Record& record_ = service_->record;
    DWORD cookie_ = 0;
    MessagePump pump_;
};

TEST_F(AccessibleNameTest, EveryStopOfTheTabKeyHasANameAndOurClassesARole) {
    Form1Window form(pump_, {});
    form.form().ShowStatus("");  // creates the pane's control
    EXPECT_TRUE(record_.empty()) << "the service's library is loaded before it is asked for";
    constexpr LONG button = ROLE_SYSTEM_PUSHBUTTON;
    const std::map<std::string, LONG> stops = {
        {"", ROLE_SYSTEM_LINK},  // the example, which is filled when the form loads
        {"Close", button},
        {"Download", button},
        {"Quit", button},
        {"Status", 0},
        {"Download From : ", 0},
        {"Paste Your URL Below", 0},
        {"http://www.velvox.example/", ROLE_SYSTEM_LINK}};
    EXPECT_EQ(stopsBelow(form.handle()), stops);
}

TEST_F(AccessibleNameTest, TheResultPaneKeepsItsNameWithANewControl) {
    WindowsDesktop desktop(pump_);
    const Form1Window form(pump_, {});
    ResultPaneWindow pane(form.handle(), {0, 0, 200, 200}, 1, desktop);
    pane.accessibleName(L"Status");
    const HWND first = pane.textWindow();
    EXPECT_EQ(spokenBy(first).name, "Status");
    pane.accessibleName(L"Links");
    EXPECT_EQ(spokenBy(first).name, "Links");
    pane.DocumentHTML("two<br>lines");
    pane.DocumentHTML("");
    ASSERT_NE(pane.textWindow(), first);
    EXPECT_EQ(spokenBy(pane.textWindow()).name, "Links");
    EXPECT_FALSE(record_.contains(first));
}

// A missing service is no failure. Wine does not implement IAccPropServices, and a thread without
// COM cannot create it in any system.
TEST(AccessibleNameMissingTest, IsNoFailure) {
    const TestForm window({0, 0, 9, 9});
    const auto ask = [&] {
        setAccessibleName(window.handle(), L"a name", ROLE_SYSTEM_LINK);
        SendMessageW(window.handle(), WM_GETOBJECT, 0, OBJID_CLIENT);
    };
    ask();
    const OleScope ole;
    ask();
}

}  // namespace
}  // namespace velvox
