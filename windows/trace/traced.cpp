#include "windows/trace/traced.h"

namespace trace {

com::Ptr<IUnknown> TracedObject::create(IUnknown* object, const wchar_t* side,
                                        std::span<const FacetRow> facets) {
    if (object == nullptr) return {};
    return com::Ptr<IUnknown>::attach(new TracedObject(object, side, facets));
}

std::unique_ptr<Facet> TracedObject::makeFacet(REFIID iid) {
    for (const FacetRow& row : rows_)
        if (row.asked == iid) return row.make(*this, *object_.get(), row.name);
    return nullptr;
}

STDMETHODIMP TracedObject::QueryInterface(REFIID iid, void** out) noexcept {
    if (out == nullptr) return E_POINTER;
    *out = nullptr;
    try {
        if (iid == IID_IUnknown) {
            *out = static_cast<IUnknown*>(this);
        } else {
            auto& known = facets_[iid];
            if (!known) known = makeFacet(iid);
            if (known) *out = known->handedOut();
        }
        // An interface that is not traced is handed out as it is.
        const HRESULT result = *out != nullptr ? S_OK : object_->QueryInterface(iid, out);
        const bool traced = *out != nullptr && iid != IID_IUnknown && facets_[iid] != nullptr;
        write(side_ + L" QueryInterface(" + shown(iid) + L") = " + hex(static_cast<unsigned long>(result)) +
              (traced || FAILED(result) || iid == IID_IUnknown ? L"" : L", not traced further"));
        if (traced || iid == IID_IUnknown) AddRef();
        return result;
    } catch (...) {
        return E_OUTOFMEMORY;
    }
}

STDMETHODIMP_(ULONG) TracedObject::AddRef() noexcept {
    const LONG references = InterlockedIncrement(&references_);
    write(side_ + L" AddRef = " + std::to_wstring(references));
    return static_cast<ULONG>(references);
}

STDMETHODIMP_(ULONG) TracedObject::Release() noexcept {
    const LONG references = InterlockedDecrement(&references_);
    write(side_ + L" Release = " + std::to_wstring(references));
    if (references == 0) {
        references_ = 1 << 24;  // what lets go of this object while it ends does not end it again
        facets_.clear();
        delete this;
    }
    return static_cast<ULONG>(references);
}

}  // namespace trace
