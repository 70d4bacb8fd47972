#include "windows/com/persistence.h"

#include <olectl.h>

#include "windows/com/boundary.h"
#include "windows/com/names.h"
#include "windows/com/stream_format.h"

namespace com {
namespace {

void report(IErrorLog* log, const wchar_t* name) {
    if (log == nullptr) return;
    const Bstr source{PROG_ID};
    const Bstr description{L"The stored value has the wrong type."};
    EXCEPINFO error{};
    error.bstrSource = source.get();
    error.bstrDescription = description.get();
    error.scode = DISP_E_TYPEMISMATCH;
    log->AddError(name, &error);
}

/// A value that is none of the font's kind is left out.
bool storeConverted(StoredValues& values, std::size_t row, VARIANT& read) {
    VARIANT& target = values.at(row);
    if (target.vt != VT_DISPATCH) return SUCCEEDED(VariantChangeType(&target, &read, 0, target.vt));
    if (read.vt == VT_EMPTY) return true;
    if (read.vt != VT_DISPATCH && read.vt != VT_UNKNOWN) return false;
    const auto font = Ptr<IUnknown>(read.punkVal).as<IFontDisp>();
    if (read.punkVal != nullptr && !font) return false;
    values.setFont(font);
    return true;
}

/// A missing value keeps the default; one of the wrong type does, too, and is reported.
void loadFromBag(IPropertyBag& bag, IErrorLog* log, StoredValues& values, std::size_t row) {
    const StoredPropertyRow& property = storedPropertyRows()[row];
    Variant read;
    // The bag converts to the type that it finds here; where it cannot, it reports by itself.
    read.vt = property.type;
    read.llVal = 0;
    if (FAILED(bag.Read(property.name, &read, log))) return;
    if (!storeConverted(values, row, read)) report(log, property.name);
}

}  // namespace

STDMETHODIMP Persistence::InitNew() noexcept {
    return atBoundary([&] {
        if (loaded_) return E_UNEXPECTED;
        StoredValues fresh;
        fresh.setFont(container_.ambientFont());
        properties_.replace(fresh);
        return S_OK;
    });
}

void Persistence::containerChanged() {
    if (!loaded_) properties_.startWithFont(container_.ambientFont());
}

STDMETHODIMP Persistence::Load(IStream* stream) noexcept {
    return atBoundary([&] {
        properties_.replace(fromStream(required(stream)));
        loaded_ = true;
        return S_OK;
    });
}

STDMETHODIMP Persistence::Save(IStream* stream, BOOL clearDirty) noexcept {
    return atBoundary([&] {
        const auto bytes = toBytes(properties_.values());
        ULONG written = 0;
        check(required(stream).Write(bytes.data(), static_cast<ULONG>(bytes.size()), &written));
        if (written != bytes.size()) return STG_E_MEDIUMFULL;
        if (clearDirty) properties_.markSaved();
        return S_OK;
    });
}

STDMETHODIMP Persistence::GetSizeMax(ULARGE_INTEGER* size) noexcept {
    return atBoundary([&] {
        required(size).QuadPart = toBytes(properties_.values()).size();
        return S_OK;
    });
}

STDMETHODIMP Persistence::Load(IPropertyBag* bag, IErrorLog* log) noexcept {
    return atBoundary([&] {
        required(bag);
        StoredValues values;
        values.setFont(container_.ambientFont());
        for (std::size_t row = 0; row < STORED_PROPERTIES; ++row) loadFromBag(*bag, log, values, row);
        properties_.replace(values);
        loaded_ = true;
        return S_OK;
    });
}

STDMETHODIMP Persistence::Save(IPropertyBag* bag, BOOL clearDirty, BOOL saveAll) noexcept {
    return atBoundary([&] {
        required(bag);
        StoredValues defaults;
        defaults.setFont(container_.ambientFont());
        for (std::size_t row = 0; row < STORED_PROPERTIES; ++row) {
            const VARIANT& value = properties_.values().at(row);
            if (!saveAll && sameValue(value, defaults.at(row))) continue;
            Variant copy;
            copyValue(copy, value);
            check(bag->Write(storedPropertyRows()[row].name, &copy));
        }
        if (clearDirty) properties_.markSaved();
        return S_OK;
    });
}

}  // namespace com
