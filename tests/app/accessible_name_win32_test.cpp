#include "base/accessible_name_win32.h"

#include <gtest/gtest.h>

#include <map>

#include "app/form1_win32.h"
#include "app/result_pane_win32.h"

namespace velvox {
namespace {

struct Spoken {
    std::string name;
    LONG role = 0;
};

using Record = std::map<HWND, Spoken>;

/// Writes down what is set and what is taken back.
class FakeService final : public ComObject<IAccPropServices> {
 public:
    explicit FakeService(Record& record) : record_(record) {}

    STDMETHODIMP SetHwndPropStr(HWND window, DWORD object, DWORD child, MSAAPROPID property,
                                LPCWSTR text) override {
        EXPECT_TRUE(isWhole(object, child) && property == accessibleNameProperty);
        record_[window].name = narrow(text);
        return S_OK;
    }
    STDMETHODIMP SetHwndProp(HWND window, DWORD object, DWORD child, MSAAPROPID property,
                             VARIANT value) override {
        EXPECT_TRUE(isWhole(object, child) && property == accessibleRoleProperty);
        EXPECT_EQ(V_VT(&value), VT_I4);
        record_[window].role = V_I4(&value);
        return S_OK;
    }
    STDMETHODIMP ClearHwndProps(HWND window, DWORD object, DWORD child, const MSAAPROPID*,
                                int count) override {
        EXPECT_TRUE(isWhole(object, child) && count == 2);
        record_.erase(window);
        return S_OK;
    }

    // Of no use here, but asked for by the interface.
#define VELVOX_UNUSED(name, ...)              \
    STDMETHODIMP name(__VA_ARGS__) override { \
        return E_NOTIMPL;                     \
    }
    VELVOX_UNUSED(SetPropValue, const BYTE*, DWORD, MSAAPROPID, VARIANT)
    VELVOX_UNUSED(SetPropServer, const BYTE*, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                  AnnoScope)
    VELVOX_UNUSED(ClearProps, const BYTE*, DWORD, const MSAAPROPID*, int)
    VELVOX_UNUSED(SetHwndPropServer, HWND, DWORD, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                  AnnoScope)
    VELVOX_UNUSED(ComposeHwndIdentityString, HWND, DWORD, DWORD, BYTE**, DWORD*)
    VELVOX_UNUSED(DecomposeHwndIdentityString, const BYTE*, DWORD, HWND*, DWORD*, DWORD*)
    VELVOX_UNUSED(SetHmenuProp, HMENU, DWORD, MSAAPROPID, VARIANT)
    VELVOX_UNUSED(SetHmenuPropStr, HMENU, DWORD, MSAAPROPID, LPCWSTR)
    VELVOX_UNUSED(SetHmenuPropServer, HMENU, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                  AnnoScope)
    VELVOX_UNUSED(ClearHmenuProps, HMENU, DWORD, const MSAAPROPID*, int)
    VELVOX_UNUSED(ComposeHmenuIdentityString, HMENU, DWORD, BYTE**, DWORD*)
    VELVOX_UNUSED(DecomposeHmenuIdentityString, const BYTE*, DWORD, HMENU*, DWORD*)
#undef VELVOX_UNUSED

 private:
    static bool isWhole(DWORD object, DWORD child) {
        return object == static_cast<DWORD>(OBJID_CLIENT) && child == CHILDID_SELF;
    }

    Record& record_;
};

class FakeFactory final : public ComObject<IClassFactory> {
 public:
    explicit FakeFactory(Record& record) : record_(record) {}

    STDMETHODIMP CreateInstance(IUnknown*, REFIID id, void** result) override {
        const ComPtr<FakeService> service(new FakeService(record_));
        return service->QueryInterface(id, result);
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }

 private:
    Record& record_;
};

/// In place of the system's service, for this thread.
class AccessibleNameTest : public testing::Test {
 protected:
    void SetUp() override {
        const ComPtr<FakeFactory> factory(new FakeFactory(record_));
        requireSuccess(CoRegisterClassObject(accessibleNameService, factory.get(),
                                             CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie_),
                       "CoRegisterClassObject");
    }
    void TearDown() override {
        EXPECT_TRUE(record_.empty()) << "a name outlived its window";
        CoRevokeClassObject(cookie_);
    }

    OleScope ole_;
    Record record_;
    DWORD cookie_ = 0;
    MessagePump pump_;
};

std::wstring classOf(HWND window) {
    wchar_t name[80]{};
    GetClassNameW(window, name, ARRAYSIZE(name));
    return name;
}

/// What a screen reader says at the stops of the tab key.
struct Stops {
    const Record& record;
    std::map<std::string, LONG> roles;

    __attribute__((force_align_arg_pointer)) static BOOL CALLBACK see(HWND window, LPARAM to) {
        if ((GetWindowLongW(window, GWL_STYLE) & WS_TABSTOP) == 0) return TRUE;
        auto& stops = *reinterpret_cast<Stops*>(to);
        const auto found = stops.record.find(window);
        const Spoken spoken = found == stops.record.end() ? Spoken{} : found->second;
        std::string name = spoken.name;
        if (name.empty()) {
            // The system names a list after the label before it.
            const HWND label = GetWindow(window, GW_HWNDPREV);
            const bool isList = classOf(window) == L"ComboBox" && classOf(label) == L"Static";
            name = windowText(isList ? label : window);
        }
        stops.roles[name] = spoken.role;
        return TRUE;
    }
};

TEST_F(AccessibleNameTest, EveryStopOfTheTabKeyHasANameAndOurClassesARole) {
    Form1Window form(pump_, {});
    Stops seen{record_, {}};
    EnumChildWindows(form.handle(), &Stops::see, reinterpret_cast<LPARAM>(&seen));
    EXPECT_EQ(seen.roles, (std::map<std::string, LONG>{
                              {"", ROLE_SYSTEM_LINK},  // the example, filled as the form loads
                              {"Close", ROLE_SYSTEM_PUSHBUTTON},
                              {"Download", ROLE_SYSTEM_PUSHBUTTON},
                              {"Download From : ", 0},
                              {"Paste Your URL Below", 0},
                              {"Quit", ROLE_SYSTEM_PUSHBUTTON},
                              {"Status", 0},
                              {"http://www.velvox.example/", ROLE_SYSTEM_LINK},
                          }));
}

TEST_F(AccessibleNameTest, TheResultPaneKeepsItsNameWithANewControl) {
    WindowsDesktop desktop(pump_);
    Form1Window form(pump_, {});
    ResultPaneWindow pane(form.handle(), {0, 0, 200, 200}, 1, desktop);
    pane.accessibleName(L"Status");
    const HWND first = pane.textWindow();
    EXPECT_EQ(record_[first].name, "Status");
    std::string lines;
    for (int i = 0; i < 1000; ++i) lines += "<br>x";
    pane.DocumentHTML(lines);
    pane.DocumentHTML("");
    ASSERT_NE(pane.textWindow(), first);
    EXPECT_EQ(record_[pane.textWindow()].name, "Status");
    EXPECT_FALSE(record_.contains(first));
}

// Wine has the service's class at most; a thread without COM has nothing.
TEST(AccessibleNameMissingTest, IsNoFailure) {
    const HWND window = CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 1, 1, nullptr, nullptr,
                                        GetModuleHandleW(nullptr), nullptr);
    { const AccessibleName none(window, L"a name", ROLE_SYSTEM_LINK); }
    const OleScope ole;
    const AccessibleName name(window, L"a name", ROLE_SYSTEM_LINK);
    EXPECT_TRUE(IsWindow(window));
    DestroyWindow(window);
}

}  // namespace
}  // namespace velvox
