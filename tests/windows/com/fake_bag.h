// A property bag and an error log for the persistence tests; both fail the test where the control keeps them.
#pragma once

#include <gtest/gtest.h>
#include <ocidl.h>

#include <map>
#include <string>
#include <vector>

#include "interfaces/com.h"

namespace tests {

/// Counted, not owned: it lives in the test.
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

class FakeBag : public Local<IPropertyBag> {
public:
    std::map<std::wstring, com::Variant> values;
    std::vector<std::wstring> written;

    /// Hands values out as they are, without the conversion that a bag may make.
    STDMETHODIMP Read(LPCOLESTR name, VARIANT* value, IErrorLog*) override {
        const auto found = values.find(name);
        return found == values.end() ? E_INVALIDARG : VariantCopy(value, &found->second);
    }
    STDMETHODIMP Write(LPCOLESTR name, VARIANT* value) override {
        written.push_back(name);
        return VariantCopy(&values[name], value);
    }
};

class FakeErrorLog : public Local<IErrorLog> {
public:
    std::vector<std::wstring> names;
    STDMETHODIMP AddError(LPCOLESTR name, EXCEPINFO* error) override {
        EXPECT_TRUE(FAILED(error->scode));
        names.push_back(name);
        return S_OK;
    }
};

}  // namespace tests
