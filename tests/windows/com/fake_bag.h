// A property bag and an error log for the persistence tests; both fail the test where the control keeps them.
#pragma once

#include <ocidl.h>

#include <map>
#include <string>
#include <vector>

#include "interfaces/com.h"
#include "tests/windows/stage/local.h"

namespace tests {

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
