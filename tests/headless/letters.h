// Lower case for the scripts that the tests use, by the letters' code points alone.
#pragma once

#include <string>

namespace headless {

/// Latin (with its supplements), Greek and Cyrillic letters in lower case; all else as it is.
[[nodiscard]] wchar_t lower(wchar_t letter);
[[nodiscard]] std::wstring lower(std::wstring text);

}  // namespace headless
