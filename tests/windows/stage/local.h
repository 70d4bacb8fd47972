// COM objects that live in a test.
#pragma once

#include <gtest/gtest.h>
#include <ole2.h>

namespace tests {

/// Counted, not owned; fails the test where somebody keeps it.
template <class Interface>
class Local : public Interface {
public:
    virtual ~Local() { EXPECT_EQ(references_, 1u) << "still referenced after the call"; }
    STDMETHODIMP QueryInterface(REFIID iid, void** out) noexcept override {
        *out = iid == IID_IUnknown || iid == __uuidof(Interface) ? this : nullptr;
        if (*out == nullptr) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() noexcept override { return --references_; }
    [[nodiscard]] ULONG references() const { return references_; }

private:
    ULONG references_ = 1;
};

}  // namespace tests
