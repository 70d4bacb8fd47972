#include "windows/com/stored_properties.h"

#include <olectl.h>

#include "windows/com/boundary.h"

namespace com {
namespace {

constexpr DISPID DISPID_LOADING = 1;

/// A font object and none are two values; so are a font and an object that is none.
bool sameFont(IUnknown* one, IUnknown* other) {
    if (one == other) return true;
    const auto first = Ptr<IUnknown>(one).as<IFont>();
    const auto second = Ptr<IUnknown>(other).as<IFont>();
    return first && second && first->IsEqual(second.get()) == S_OK;
}

}  // namespace

const std::array<StoredPropertyRow, STORED_PROPERTIES>& storedPropertyRows() {
    static constexpr std::array<StoredPropertyRow, STORED_PROPERTIES> rows{{
        {L"BackColor", DISPID_BACKCOLOR, VT_I4},
        {L"ForeColor", DISPID_FORECOLOR, VT_I4},
        {L"Enabled", DISPID_ENABLED, VT_BOOL},
        {L"Font", DISPID_FONT, VT_DISPATCH},
        {L"BackStyle", DISPID_BACKSTYLE, VT_I2},
        {L"BorderStyle", DISPID_BORDERSTYLE, VT_I2},
        {L"Loading", DISPID_LOADING, VT_BOOL},
    }};
    return rows;
}

StoredValues::StoredValues() {
    for (std::size_t row = 0; row < values_.size(); ++row) {
        values_[row].vt = storedPropertyRows()[row].type;
        values_[row].llVal = 0;
    }
}

StoredValues::StoredValues(const StoredValues& other) { *this = other; }

StoredValues& StoredValues::operator=(const StoredValues& other) {
    for (std::size_t row = 0; row < values_.size(); ++row) copyValue(values_[row], other.values_[row]);
    return *this;
}

void StoredValues::setFont(const Ptr<IFontDisp>& font) {
    VARIANT value{};
    value.vt = VT_DISPATCH;
    value.pdispVal = font.get();
    copyValue((*this)[StoredProperty::Font], value);
}

// The system's function only reads what it copies, though its declaration does not say so.
void copyValue(VARIANT& to, const VARIANT& from) { check(VariantCopy(&to, const_cast<VARIANT*>(&from))); }

bool sameValue(const VARIANT& one, const VARIANT& other) {
    switch (one.vt) {
        case VT_I4: return one.lVal == other.lVal;
        case VT_I2: return one.iVal == other.iVal;
        case VT_BOOL: return one.boolVal == other.boolVal;
        default: return sameFont(one.punkVal, other.punkVal);
    }
}

void StoredProperties::set(StoredProperty property, const VARIANT& value) {
    const DISPID dispid = storedPropertyRows()[static_cast<std::size_t>(property)].dispid;
    if (!notifier_.mayChange(dispid)) throw Failure(CTL_E_SETNOTPERMITTED);
    const bool differs = !sameValue(values_[property], value);
    copyValue(values_[property], value);
    dirty_ = dirty_ || differs;
    notifier_.changed(dispid);
}

void StoredProperties::replace(const StoredValues& values) {
    values_ = values;
    dirty_ = false;
}

void StoredProperties::startWithFont(const Ptr<IFontDisp>& font) {
    if (font && values_[StoredProperty::Font].pdispVal == nullptr) values_.setFont(font);
}

}  // namespace com
