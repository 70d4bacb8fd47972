// Where the project's own files are, for tests that read them.
#pragma once

#include <string>

namespace tests {

/// Without a final slash.
[[nodiscard]] std::string sourceFolder();

}  // namespace tests
