// Values as automation passes them; whoever makes one keeps what it refers to.
#pragma once

#include "interfaces/com.h"

namespace tests {

inline VARIANT integer(LONG value) {
    VARIANT variant{};
    variant.vt = VT_I4;
    variant.lVal = value;
    return variant;
}

inline VARIANT flag(bool value) {
    VARIANT variant{};
    variant.vt = VT_BOOL;
    variant.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
    return variant;
}

inline VARIANT text(BSTR value) {
    VARIANT variant{};
    variant.vt = VT_BSTR;
    variant.bstrVal = value;
    return variant;
}

inline VARIANT dispatch(IDispatch* value) {
    VARIANT variant{};
    variant.vt = VT_DISPATCH;
    variant.pdispVal = value;
    return variant;
}

inline VARIANT reference(VARTYPE type, void* target) {
    VARIANT variant{};
    variant.vt = static_cast<VARTYPE>(type | VT_BYREF);
    variant.byref = target;
    return variant;
}

/// Puts a value in an empty place, which clears it at its end.
inline void put(com::Variant& place, const VARIANT& value) { static_cast<VARIANT&>(place) = value; }

}  // namespace tests
