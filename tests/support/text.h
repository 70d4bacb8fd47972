// Small text helpers of the tests.
#pragma once

#include <string>
#include <vector>

namespace tests {

/// The lines of a file that ends its lines with CR LF; a last line without an end counts, too.
[[nodiscard]] std::vector<std::string> splitLines(const std::string& content);

/// The ASCII text as a narrow string; anything else becomes '?'. For lines of the call log and messages.
[[nodiscard]] std::string narrow(const std::wstring& text);

}  // namespace tests
