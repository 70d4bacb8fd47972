// Dates as the add-in stores them, decimal texts of date serials, and as the list shows them.
//
// A date serial counts days from 30 December 1899; its fraction is the time of day, below zero too (-1.25 is
// 6 o'clock on the day before).
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace vexa {

/// The number that a decimal text stands for. Blanks around it and either decimal sign, "." or ",", are
/// taken, whatever the user's locale is: the text was written on another day, perhaps under another one.
/// Nothing where the text is no such number.
[[nodiscard]] std::optional<double> numberFromText(const std::wstring& text);

/// "mm/dd/yyyy hh:mm:ss AM/PM", rounded to the nearest second. Throws Error ("Overflow") outside the years
/// 100 to 9999.
[[nodiscard]] std::wstring dateText(double serial);

/// The date that `dateText` has written, in seconds from 30 December 1899, read in that form under any
/// locale; "0" is that day itself. Throws Error ("Type mismatch").
[[nodiscard]] std::int64_t dateFromText(const std::wstring& text);

}  // namespace vexa
