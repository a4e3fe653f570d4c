// Owner types for OLE, COM interface pointers and COM strings, and base classes for COM objects.
#pragma once

#include <windows.h>

#include <ole2.h>

#include <atomic>
#include <string_view>
#include <utility>

#include "base/owned_win32.h"
#include "base/system_win32.h"

namespace velvox {

/// Initialises OLE on this thread for the length of a scope. S_FALSE (already initialised) is no
/// error.
class OleScope {
 public:
    OleScope() { requireSuccess(OleInitialize(nullptr), "OleInitialize"); }
    OleScope(const OleScope&) = delete;
    OleScope& operator=(const OleScope&) = delete;
    ~OleScope() { OleUninitialize(); }
};

/// Owns one reference to a COM interface.
template <class Interface>
class ComPtr {
 public:
    ComPtr() noexcept = default;
    /// Takes over a reference that the caller owns.
    explicit ComPtr(Interface* owned) noexcept : pointer_(owned) {}
    ComPtr(ComPtr&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
    ComPtr& operator=(ComPtr&& other) noexcept {
        ComPtr old(std::exchange(pointer_, std::exchange(other.pointer_, nullptr)));
        return *this;
    }
    ~ComPtr() { reset(); }

    Interface* get() const noexcept { return pointer_; }
    Interface* operator->() const noexcept { return pointer_; }
    explicit operator bool() const noexcept { return pointer_ != nullptr; }

    void reset() noexcept {
        if (Interface* const old = std::exchange(pointer_, nullptr)) old->Release();
    }

    [[nodiscard]] Interface* release() noexcept { return std::exchange(pointer_, nullptr); }

    /// Releases the reference and returns the address where a call can store a new reference.
    Interface** put() noexcept {
        reset();
        return &pointer_;
    }
    void** putVoid() noexcept { return reinterpret_cast<void**>(put()); }

    /// Queries the object for another interface; null if the object lacks that interface.
    template <class Other>
    ComPtr<Other> query() const noexcept {
        ComPtr<Other> other;
        if (pointer_) pointer_->QueryInterface(__uuidof(Other), other.putVoid());
        return other;
    }

 private:
    Interface* pointer_ = nullptr;
};

/// Adds a reference to an object that another owner holds.
template <class Interface>
ComPtr<Interface> share(Interface* borrowed) noexcept {
    if (borrowed) borrowed->AddRef();
    return ComPtr<Interface>(borrowed);
}

inline void freeBstr(BSTR text) noexcept {
    SysFreeString(text);
}
using Bstr = Owned<BSTR, &freeBstr>;

inline Bstr makeBstr(std::wstring_view text) {
    return Bstr(SysAllocStringLen(text.data(), static_cast<UINT>(text.size())));
}

inline std::wstring_view view(BSTR text) {
    return {text, SysStringLen(text)};
}

// COM interfaces have no virtual destructor. Only an object's own Release deletes it, so the
// warning does not apply.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// Base of this program's COM objects that implement `Interfaces`. An object starts with one
/// reference, deletes itself with the last one, and is counted in liveHandles().
template <class... Interfaces>
class ComObject : public Interfaces... {
 public:
    ComObject() noexcept { ++liveHandles(); }
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    STDMETHODIMP QueryInterface(REFIID id, void** result) override {
        if (!result) return E_POINTER;
        *result = nullptr;
        if (!find(id, result)) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

 protected:
    virtual ~ComObject() { --liveHandles(); }

    /// Stores the interface `id` without adding a reference; returns false if the object lacks it.
    virtual bool find(REFIID id, void** result) noexcept {
        ((id == __uuidof(Interfaces) && (*result = static_cast<Interfaces*>(this))) || ...);
        if (!*result && id == IID_IUnknown) *result = identity();
        return *result != nullptr;
    }

 private:
    template <class First, class...>
    struct FirstOf {
        using Type = First;
    };
    IUnknown* identity() noexcept {
        return static_cast<typename FirstOf<Interfaces...>::Type*>(this);
    }

    std::atomic<ULONG> references_{1};
};

/// A ComObject whose IDispatch supports only Invoke: it has no type information and no names.
template <class... Interfaces>
class ComDispatch : public ComObject<Interfaces..., IDispatch> {
 public:
    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        if (count) *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return DISP_E_UNKNOWNNAME;
    }
};

#pragma GCC diagnostic pop

}  // namespace velvox
