// What the workbench's COM objects leave in the place for an answer.
#pragma once

#include <unknwn.h>

namespace workbench {

/// One more reference to the object.
template <class Interface>
HRESULT give(Interface* object, void** out) {
    object->AddRef();
    *out = object;
    return S_OK;
}

/// Nothing: there is no such object.
template <class Type>
HRESULT none(Type** out) {
    if (out == nullptr) return E_POINTER;
    *out = nullptr;
    return E_NOTIMPL;
}

}  // namespace workbench
