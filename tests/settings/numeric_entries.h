// What happens in the number fields, key by key: tables of typed texts.
#pragma once

#include <span>

namespace tests {

struct NumericEntry {
    const char* what;
    /// The field holds this number, in its text and its value, with the caret at the end.
    int before;
    /// Characters are typed; {paste:...} is one change. {all} selects the text, {home}, {end} and {right}
    /// move the caret, {back} and {del} delete.
    const wchar_t* keys;
    /// The field after each key that may change it, separated by " / ": the text with "|" at the caret, "=",
    /// the value.
    const wchar_t* states;
};

[[nodiscard]] std::span<const NumericEntry> delayEntries();       ///< 0 to 60
[[nodiscard]] std::span<const NumericEntry> entryCountEntries();  ///< 10 to 10000
[[nodiscard]] std::span<const NumericEntry> minRelEntries();      ///< 0 to 100
[[nodiscard]] std::span<const NumericEntry> maxSizeEntries();     ///< 1 to 65000

}  // namespace tests
