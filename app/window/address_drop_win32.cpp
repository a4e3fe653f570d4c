#include "app/window/address_drop_win32.h"

#include <shellapi.h>
#include <shlobj.h>

#include "app/form1/given_address.h"
#include "base/clipboard_win32.h"
#include "base/window_win32.h"

namespace velvox {
namespace {

// Only the start of a dropped file is read, because Internet shortcuts are small.
constexpr DWORD maxShortcutBytes = 64 * 1024;

class Medium {
 public:
    Medium(IDataObject& data, UINT format) {
        FORMATETC wanted{static_cast<CLIPFORMAT>(format), nullptr, DVASPECT_CONTENT, -1,
                         TYMED_HGLOBAL};
        if (FAILED(data.GetData(&wanted, &medium_))) medium_ = {};
    }
    Medium(const Medium&) = delete;
    Medium& operator=(const Medium&) = delete;
    ~Medium() {
        if (medium_.tymed != TYMED_NULL) ReleaseStgMedium(&medium_);
    }

    /// Null if the data object does not have the format.
    HGLOBAL memory() const noexcept {
        return medium_.tymed == TYMED_HGLOBAL ? medium_.hGlobal : nullptr;
    }

 private:
    STGMEDIUM medium_{};
};

std::string contentOf(const wchar_t* file) {
    const HANDLE opened = CreateFileW(file, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
    if (opened == INVALID_HANDLE_VALUE) return {};
    const OwnedHandle handle(opened);
    std::string content(maxShortcutBytes, '\0');
    DWORD read = 0;
    if (!ReadFile(handle.get(), content.data(), maxShortcutBytes, &read, nullptr)) return {};
    content.resize(read);
    return content;
}

std::string shortcutAddress(HGLOBAL droppedFiles) {
    const auto drop = static_cast<HDROP>(droppedFiles);
    std::wstring file(drop ? DragQueryFileW(drop, 0, nullptr, 0) : 0, L'\0');
    if (file.empty()) return {};
    DragQueryFileW(drop, 0, file.data(), static_cast<UINT>(file.size()) + 1);
    return velvox::shortcutAddress(contentOf(file.c_str()));
}

class DropTarget final : public ComObject<IDropTarget> {
 public:
    DropTarget(std::function<bool()> accepts, std::function<void(std::string_view)> take)
        : accepts_(std::move(accepts)), take_(std::move(take)) {}

    STDMETHODIMP DragEnter(IDataObject* data, DWORD, POINTL, DWORD* effect) override {
        hasAddress_ = false;
        try {
            hasAddress_ = data && !givenAddress(droppedText(*data)).empty();
        } catch (...) {
            reportCurrentFailure();
        }
        return answer(effect);
    }
    STDMETHODIMP DragOver(DWORD, POINTL, DWORD* effect) override { return answer(effect); }
    STDMETHODIMP DragLeave() override { return S_OK; }
    STDMETHODIMP Drop(IDataObject* data, DWORD, POINTL, DWORD* effect) override {
        try {
            if (data && accepts_()) take_(droppedText(*data));
        } catch (...) {
            reportCurrentFailure();
        }
        return answer(effect);
    }

 private:
    HRESULT answer(DWORD* effect) const {
        if (!effect) return E_POINTER;
        // A browser may offer a link or a copy; both effects are accepted.
        const DWORD allowed = *effect & (DROPEFFECT_COPY | DROPEFFECT_LINK);
        const bool taken = hasAddress_ && accepts_();
        *effect = !taken ? DROPEFFECT_NONE : allowed & DROPEFFECT_COPY ? DROPEFFECT_COPY : allowed;
        return S_OK;
    }

    std::function<bool()> accepts_;
    std::function<void(std::string_view)> take_;
    bool hasAddress_ = false;
};

}  // namespace

std::string droppedText(IDataObject& data) {
    if (const Medium link(data, RegisterClipboardFormatW(CFSTR_INETURLW)); link.memory())
        if (std::string address = textOfMemory(link.memory()); !address.empty()) return address;
    if (const Medium files(data, CF_HDROP); files.memory()) return shortcutAddress(files.memory());
    const Medium text(data, CF_UNICODETEXT);
    return textOfMemory(text.memory());
}

AddressDrop::AddressDrop(HWND window, std::function<bool()> accepts,
                         std::function<void(std::string_view)> take)
    : window_(window) {
    const ComPtr<IDropTarget> target(new DropTarget(std::move(accepts), std::move(take)));
    requireSuccess(RegisterDragDrop(window, target.get()), "RegisterDragDrop");
}

AddressDrop::~AddressDrop() {
    RevokeDragDrop(window_);
}

}  // namespace velvox
