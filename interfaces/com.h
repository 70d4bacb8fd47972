// Owners for COM's references and strings, and a base for what such references count.
#pragma once

#include <windows.h>

#include <ole2.h>

#include <atomic>
#include <cwchar>
#include <new>
#include <string>
#include <string_view>
#include <utility>

namespace com {

/// A counted reference to a COM object, or none.
template <class Interface>
class Ptr {
public:
    Ptr() = default;
    /// Shares the object: adds a reference of its own.
    explicit Ptr(Interface* object) : object_(object) {
        if (object_ != nullptr) object_->AddRef();
    }
    Ptr(const Ptr& other) : Ptr(other.object_) {}
    Ptr(Ptr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    Ptr& operator=(Ptr other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~Ptr() { reset(); }

    /// Takes over a reference that the caller owns.
    [[nodiscard]] static Ptr attach(Interface* object) {
        Ptr owner;
        owner.object_ = object;
        return owner;
    }
    /// Gives the reference up to the caller.
    [[nodiscard]] Interface* detach() { return std::exchange(object_, nullptr); }

    void reset() {
        // Cleared first: the last release may come back here.
        if (Interface* object = std::exchange(object_, nullptr)) object->Release();
    }
    /// Where a function is to leave a new reference; drops the one held.
    [[nodiscard]] Interface** out() {
        reset();
        return &object_;
    }
    [[nodiscard]] void** outVoid() { return reinterpret_cast<void**>(out()); }

    /// Empty where the object lacks the interface.
    template <class Other>
    [[nodiscard]] Ptr<Other> as() const {
        Ptr<Other> other;
        if (object_ != nullptr && FAILED(object_->QueryInterface(__uuidof(Other), other.outVoid())))
            return {};
        return other;
    }

    [[nodiscard]] Interface* get() const { return object_; }
    Interface* operator->() const { return object_; }
    explicit operator bool() const { return object_ != nullptr; }

private:
    Interface* object_ = nullptr;
};

/// An object that counts its references: it begins with one and ends with the last.
template <class Interface>
class Counted : public Interface {
public:
    Counted() = default;
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** out) noexcept override {
        if (out == nullptr) return E_POINTER;
        *out = nullptr;
        if (iid != __uuidof(IUnknown) && iid != __uuidof(Interface)) return E_NOINTERFACE;
        *out = static_cast<Interface*>(this);
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() noexcept override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

protected:
    virtual ~Counted() = default;

private:
    std::atomic<ULONG> references_ = 1;
};

/// A text that COM functions take and give, or none.
class Bstr {
public:
    Bstr() = default;
    /// Throws std::bad_alloc.
    explicit Bstr(std::wstring_view text)
        : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {
        if (text_ == nullptr) throw std::bad_alloc();
    }
    Bstr(Bstr&& other) noexcept : text_(std::exchange(other.text_, nullptr)) {}
    Bstr& operator=(Bstr&& other) noexcept {
        std::swap(text_, other.text_);
        return *this;
    }
    ~Bstr() { SysFreeString(text_); }

    [[nodiscard]] BSTR get() const { return text_; }
    /// Gives the string up to the caller.
    [[nodiscard]] BSTR detach() { return std::exchange(text_, nullptr); }
    /// Where a function is to leave a new string; drops the one held.
    [[nodiscard]] BSTR* out() {
        SysFreeString(std::exchange(text_, nullptr));
        return &text_;
    }

private:
    BSTR text_ = nullptr;
};

/// None is the empty text.
[[nodiscard]] inline std::wstring toText(BSTR text) {
    return text == nullptr ? std::wstring() : std::wstring(text, SysStringLen(text));
}

/// A VARIANT that is cleared at its end.
class Variant : public VARIANT {
public:
    Variant() { VariantInit(this); }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;
    ~Variant() { VariantClear(this); }
};

}  // namespace com
