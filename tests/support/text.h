// Small text helpers of the tests.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tests {

/// The lines of a file that ends its lines with CR LF; a last line without an end counts, too.
[[nodiscard]] std::vector<std::string> splitLines(const std::string& content);

/// The ASCII text as a narrow string; anything else becomes '?'. For lines of the call log and messages.
[[nodiscard]] std::string narrow(const std::wstring& text);

/// UTF-8. Works for wide characters of 16 bits (surrogate pairs are joined) and of 32 bits.
[[nodiscard]] std::string toUtf8(std::wstring_view text);

/// The opposite. `bytes` is well-formed UTF-8.
[[nodiscard]] std::wstring fromUtf8(std::string_view bytes);

}  // namespace tests
