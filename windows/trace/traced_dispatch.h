// Late binding, of the control by its container and of the container by the control.
#pragma once

#include "windows/trace/traced.h"

namespace trace {

/// Late binding on either side: the number of the member tells which.
template <class Interface>
class TracedDispatch : public Traced<Interface> {
public:
    using Traced<Interface>::Traced;
    using typename Traced<Interface>::Target;
    TRACED_METHOD(GetTypeInfoCount, (count), UINT* count)
    TRACED_METHOD(GetTypeInfo, (index, locale, information), UINT index, LCID locale, ITypeInfo** information)
    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* members) noexcept override {
        write(L"GetIDsOfNames " + shown(static_cast<const wchar_t*>(*names)));
        return this->target().GetIDsOfNames(iid, names, count, locale, members);
    }
    STDMETHODIMP Invoke(DISPID member, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* wrong) noexcept override {
        write(L"Invoke member " + shown(member) + L", flags " + shown(flags));
        const Deeper deeper;
        const HRESULT code =
            this->target().Invoke(member, iid, locale, flags, parameters, result, exception, wrong);
        write(L"= " + hex(static_cast<unsigned long>(code)) + L", " +
              shown(static_cast<const VARIANT*>(result)));
        return code;
    }
};

}  // namespace trace
