// Where the project's own files are, for tests that read them.
#pragma once

#include <string>

namespace tests {

/// Without a final slash.
[[nodiscard]] std::string sourceFolder();

/// The bytes of a file. Throws std::runtime_error where it cannot be read.
[[nodiscard]] std::string contentOf(const std::string& path);

}  // namespace tests
