// The system's automation conversions, as far as the program and its tests use them.
#pragma once

#include "common/platform.h"

namespace headless {

/// The symbols of a locale.
struct Locale {
    wchar_t decimalPoint = L'.';
    wchar_t thousandsSeparator = L',';
    std::wstring currency = L"$";
    bool monthFirst = true;  ///< order of day and month in a date
};

[[nodiscard]] Locale english();
/// A decimal comma, a point between thousands, the day before the month.
[[nodiscard]] Locale german();

class LocaleConversions : public vexa::Conversions {
public:
    [[nodiscard]] std::int32_t toInteger(const std::wstring& text) override;
    /// As VarR8FromStr.
    [[nodiscard]] double toNumber(const std::wstring& text);
    [[nodiscard]] double toDate(const std::wstring& text) override;
    [[nodiscard]] std::wstring lower(const std::wstring& text) override;

    Locale locale = english();
};

/// Days from 30 December 1899 to this day of the Gregorian calendar. `month` counts from 1.
[[nodiscard]] std::int64_t dateSerial(int year, int month, int day);

}  // namespace headless
