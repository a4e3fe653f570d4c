#include "app/browser/browser_events_win32.h"

#include <exdisp.h>
#include <exdispid.h>

#include "base/window_win32.h"

namespace velvox {
namespace {

// The argument at a position in the order of declaration, or an empty VARIANT. DISPPARAMS holds the
// arguments in reverse order.
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

void cancelUnless(bool wanted, const VARIANT& cancel) {
    if (!wanted && V_VT(&cancel) == (VT_BYREF | VT_BOOL)) *V_BOOLREF(&cancel) = VARIANT_TRUE;
}

}  // namespace

bool BrowserEvents::find(REFIID id, void** result) noexcept {
    if (id == DIID_DWebBrowserEvents2) *result = static_cast<IDispatch*>(this);
    return *result || ComObject::find(id, result);
}

STDMETHODIMP BrowserEvents::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*,
                                   EXCEPINFO*, UINT*) {
    if (!tracker_ || !parameters) return S_OK;
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
    switch (id) {
        case DISPID_BEFORENAVIGATE2:
            cancelUnless(tracker_->beforeNavigate(isTop(at(0)), text(at(1))), at(6));
            break;
        case DISPID_NAVIGATECOMPLETE2: tracker_->navigateComplete(isTop(at(0))); break;
        case DISPID_DOCUMENTCOMPLETE: tracker_->documentComplete(isTop(at(0))); break;
        case DISPID_NAVIGATEERROR: {
            const VARIANT& status = at(3);
            const auto code =
                V_VT(&status) == VT_I4 ? static_cast<std::uint32_t>(V_I4(&status)) : 0;
            cancelUnless(tracker_->navigateError(isTop(at(0)), code), at(4));
            break;
        }
        case DISPID_FILEDOWNLOAD: cancelUnless(tracker_->fileDownload(flag(at(0))), at(1)); break;
        case DISPID_NEWWINDOW2:
        case DISPID_NEWWINDOW3:
        case DISPID_WINDOWCLOSING: cancelUnless(false, at(1)); return;
        default: return;
    }
    changed_();
}

}  // namespace velvox
