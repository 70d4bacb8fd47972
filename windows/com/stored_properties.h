// The seven properties that the control keeps for its container. They change nothing of the page.
#pragma once

#include <ole2.h>

#include <array>

#include "interfaces/com.h"
#include "windows/com/notifier.h"

namespace com {

enum class StoredProperty { BackColor, ForeColor, Enabled, Font, BackStyle, BorderStyle, Loading };

constexpr std::size_t STORED_PROPERTIES = 7;

/// How a property is called, told and kept.
struct StoredPropertyRow {
    const wchar_t* name;
    DISPID dispid;
    VARTYPE type;  ///< VT_I4, VT_BOOL, VT_I2, or VT_DISPATCH for the font
};

/// In the order in which they are stored.
[[nodiscard]] const std::array<StoredPropertyRow, STORED_PROPERTIES>& storedPropertyRows();

/// The values of all properties. A new one has them all 0 or false and no font.
class StoredValues {
public:
    StoredValues();
    StoredValues(const StoredValues& other);
    StoredValues& operator=(const StoredValues& other);

    /// Of the row's type.
    [[nodiscard]] VARIANT& operator[](StoredProperty property) {
        return at(static_cast<std::size_t>(property));
    }
    [[nodiscard]] const VARIANT& operator[](StoredProperty property) const {
        return at(static_cast<std::size_t>(property));
    }
    [[nodiscard]] VARIANT& at(std::size_t row) { return values_[row]; }
    [[nodiscard]] const VARIANT& at(std::size_t row) const { return values_[row]; }

    void setFont(const Ptr<IFontDisp>& font);

private:
    std::array<Variant, STORED_PROPERTIES> values_;
};

/// Throws Failure.
void copyValue(VARIANT& to, const VARIANT& from);

/// Two values of one type are the same; fonts are where all their attributes are.
[[nodiscard]] bool sameValue(const VARIANT& one, const VARIANT& other);

class StoredProperties {
public:
    explicit StoredProperties(Notifier& notifier) : notifier_(notifier) {}

    [[nodiscard]] const StoredValues& values() const { return values_; }
    /// Asks, sets, tells, each time, also where the value is the one that is there. Throws
    /// Failure(CTL_E_SETNOTPERMITTED) where a sink forbids the change.
    void set(StoredProperty property, const VARIANT& value);
    /// What was loaded, or a new instance's; nobody is told, nothing is left to save.
    void replace(const StoredValues& values);
    /// A new instance takes the container's font, which it may learn later than its other values.
    void startWithFont(const Ptr<IFontDisp>& font);

    [[nodiscard]] bool dirty() const { return dirty_; }
    void markSaved() { dirty_ = false; }

private:
    Notifier& notifier_;
    StoredValues values_;
    bool dirty_ = false;
};

}  // namespace com
