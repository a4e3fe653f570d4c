// The events of the web browser control. Their arguments arrive last one first.
#include <exdispid.h>

#include "app/browser/browser_site_win32.h"
#include "base/window_win32.h"

namespace velvox {
namespace {

// The argument at a position counted from the front, or an empty one.
const VARIANT& argument(const DISPPARAMS& parameters, UINT position) {
    static const VARIANT none{};
    if (position >= parameters.cArgs) return none;
    const VARIANT* found = &parameters.rgvarg[parameters.cArgs - 1 - position];
    if (V_VT(found) == (VT_BYREF | VT_VARIANT)) found = V_VARIANTREF(found);
    return *found;
}

std::string text(const VARIANT& value) {
    return V_VT(&value) == VT_BSTR && V_BSTR(&value) ? narrow(view(V_BSTR(&value))) : std::string();
}

bool flag(const VARIANT& value) {
    return V_VT(&value) == VT_BOOL && V_BOOL(&value) != VARIANT_FALSE;
}

void answer(const VARIANT& cancel, bool yes) {
    if (yes && V_VT(&cancel) == (VT_BYREF | VT_BOOL)) *V_BOOLREF(&cancel) = VARIANT_TRUE;
}

}  // namespace

bool BrowserEvents::find(REFIID id, void** result) noexcept {
    if (id == DIID_DWebBrowserEvents2) *result = static_cast<IDispatch*>(this);
    return *result || ComObject::find(id, result);
}

STDMETHODIMP BrowserEvents::GetTypeInfoCount(UINT* count) {
    if (count) *count = 0;
    return S_OK;
}

STDMETHODIMP BrowserEvents::GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) {
    return DISP_E_UNKNOWNNAME;
}

STDMETHODIMP BrowserEvents::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*,
                                   EXCEPINFO*, UINT*) {
    if (!host_ || !parameters) return S_OK;
    try {
        dispatch(id, *parameters);
    } catch (...) {
        reportCurrentFailure();
    }
    return S_OK;
}

bool BrowserEvents::isTop(const VARIANT& frame) const noexcept {
    if (V_VT(&frame) != VT_DISPATCH || !V_DISPATCH(&frame)) return false;
    ComPtr<IUnknown> identity;
    V_DISPATCH(&frame)->QueryInterface(IID_IUnknown, identity.putVoid());
    return identity.get() == control_;
}

void BrowserEvents::dispatch(DISPID id, const DISPPARAMS& parameters) {
    const auto at = [&](UINT position) -> const VARIANT& { return argument(parameters, position); };
    Arrival& arrival = host_->arrival();
    bool arrived = false;
    switch (id) {
        case DISPID_BEFORENAVIGATE2:
            answer(at(6), !arrival.beforeNavigate(isTop(at(0)), text(at(1))));
            break;
        case DISPID_NAVIGATECOMPLETE2: arrival.navigateComplete(isTop(at(0))); break;
        case DISPID_DOCUMENTCOMPLETE: arrived = arrival.documentComplete(isTop(at(0))); break;
        case DISPID_NAVIGATEERROR: {
            const VARIANT& status = at(3);
            const auto code =
                V_VT(&status) == VT_I4 ? static_cast<std::uint32_t>(V_I4(&status)) : 0;
            const auto verdict = arrival.navigateError(isTop(at(0)), code);
            arrived = verdict.arrival;
            answer(at(4), verdict.cancel);
            break;
        }
        case DISPID_FILEDOWNLOAD: answer(at(1), arrival.fileDownload(flag(at(0))).cancel); break;
        case DISPID_NEWWINDOW2:
        case DISPID_NEWWINDOW3:
        case DISPID_WINDOWCLOSING: answer(at(1), true); return;
        default: return;
    }
    if (arrived) host_->arrived();
    host_->changed();
}

}  // namespace velvox
