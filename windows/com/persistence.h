// Keeping the stored properties in a container's stream or property bag.
#pragma once

#include <ocidl.h>

#include "VexaPPE.h"
#include "windows/com/container.h"
#include "windows/com/part.h"
#include "windows/com/stored_properties.h"

namespace com {

class Persistence : public Part<IPersistStreamInit, IPersistPropertyBag> {
public:
    Persistence(IUnknown& whole, StoredProperties& properties, const Container& container)
        : Part(whole), properties_(properties), container_(container) {}

    // IPersist
    STDMETHODIMP GetClassID(CLSID* classId) noexcept override { return handOut(classId, CLSID_ctlPPE); }

    // IPersistStreamInit
    STDMETHODIMP IsDirty() noexcept override { return properties_.dirty() ? S_OK : S_FALSE; }
    STDMETHODIMP Load(IStream* stream) noexcept override;
    STDMETHODIMP Save(IStream* stream, BOOL clearDirty) noexcept override;
    STDMETHODIMP GetSizeMax(ULARGE_INTEGER* size) noexcept override;

    // Of both. A new instance; E_UNEXPECTED after a load.
    STDMETHODIMP InitNew() noexcept override;

    // IPersistPropertyBag
    STDMETHODIMP Load(IPropertyBag* bag, IErrorLog* log) noexcept override;
    STDMETHODIMP Save(IPropertyBag* bag, BOOL clearDirty, BOOL saveAll) noexcept override;

    /// A new instance starts with the container's font, whether it is initialised before it has a site or
    /// after.
    void containerChanged();

private:
    StoredProperties& properties_;
    const Container& container_;
    bool loaded_ = false;
};

}  // namespace com
