// Lower case for the scripts that the tests use, by the letters' code points alone.
#pragma once

#include <string>

namespace headless {

/// Latin (with its supplements), Greek and Cyrillic letters in lower case; all else as it is.
[[nodiscard]] wchar_t lower(wchar_t letter);
[[nodiscard]] std::wstring lower(std::wstring text);

/// The next of a list's entries behind `current`, around its end, that begins with the character in either
/// case; -1 where none does. `list` has `count()` and `item(index)`.
template <class List>
[[nodiscard]] int nextBeginningWith(const List& list, wchar_t character, int current) {
    for (int step = 1; step <= list.count(); ++step) {
        const int index = (current + step) % list.count();
        const std::wstring entry = list.item(index);
        if (!entry.empty() && lower(entry.front()) == lower(character)) return index;
    }
    return -1;
}

}  // namespace headless
