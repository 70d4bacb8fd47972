// Late binding for the control's dual interfaces, by their descriptions in the type library; and the error
// information that callers of such interfaces expect.
#pragma once

#include <oaidl.h>

#include <vector>

#include "windows/com/boundary.h"
#include "windows/com/part.h"
#include "windows/com/type_library.h"

namespace com {

/// Leaves the description of a failure for the caller of a method of `iid`.
void leaveErrorInfo(REFIID iid, HRESULT code) noexcept;

/// The arguments of a late-bound call as the type library's member takes them: a script's references to its
/// variables become references to values of the member's types. Throws Failure: DISP_E_BADPARAMCOUNT where
/// there are too many (not every system checks this by itself), DISP_E_TYPEMISMATCH.
[[nodiscard]] std::vector<VARIANTARG> fittingArguments(ITypeInfo& description, DISPID member, WORD flags,
                                                       const DISPPARAMS& parameters);

template <class Interface>
class DispatchPart : public Part<Interface> {
public:
    using Part<Interface>::Part;

    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override { return handOut(count, 1); }
    STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** out) noexcept override {
        return this->atBoundary([&] {
            required(out) = nullptr;
            if (index != 0) return DISP_E_BADINDEX;
            *out = description().detach();
            return S_OK;
        });
    }
    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID, DISPID* ids) noexcept override {
        return this->atBoundary([&] {
            if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
            required(names);
            required(ids);
            return description()->GetIDsOfNames(names, count, ids);
        });
    }
    STDMETHODIMP Invoke(DISPID member, REFIID iid, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* error, UINT* badArgument) noexcept override {
        return this->atBoundary([&] {
            if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
            auto arguments = fittingArguments(*description().get(), member, flags, required(parameters));
            DISPPARAMS fitting = *parameters;
            fitting.rgvarg = arguments.data();
            // Callers may leave these out; the system's implementation writes to them all the same.
            EXCEPINFO ignoredError{};
            UINT ignoredArgument = 0;
            Variant ignoredResult;
            if (badArgument != nullptr) *badArgument = 0;
            const HRESULT code = description()->Invoke(
                static_cast<Interface*>(this), member, flags, &fitting, result ? result : &ignoredResult,
                error ? error : &ignoredError, badArgument ? badArgument : &ignoredArgument);
            clear(ignoredError);
            return code;
        });
    }

protected:
    /// Runs a method's body; its failure leaves error information.
    template <class Body>
    HRESULT automation(Body body) const noexcept {
        SetErrorInfo(0, nullptr);
        const HRESULT code = this->atBoundary(body);
        if (FAILED(code)) leaveErrorInfo(__uuidof(Interface), code);
        return code;
    }

private:
    static void clear(EXCEPINFO& error) {
        SysFreeString(error.bstrSource);
        SysFreeString(error.bstrDescription);
        SysFreeString(error.bstrHelpFile);
    }
    [[nodiscard]] Ptr<ITypeInfo>& description() {
        if (!description_) description_ = typeInfo(__uuidof(Interface));
        return description_;
    }

    Ptr<ITypeInfo> description_;
};

}  // namespace com
