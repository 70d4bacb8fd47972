// Lists of file extensions as they are stored: each extension followed by ";".
#pragma once

#include <string>
#include <vector>

namespace vexa {

/// The pieces in front of each ";", empty ones included. What follows the last ";" is dropped.
[[nodiscard]] std::vector<std::wstring> splitExtensions(const std::wstring& list);

[[nodiscard]] std::wstring joinExtensions(const std::vector<std::wstring>& extensions);

/// The available extensions without those that are selected, in their order; repeated ones stay. Compares
/// texts as they are: both lists are lower-case.
[[nodiscard]] std::vector<std::wstring> withoutSelected(const std::vector<std::wstring>& available,
                                                        const std::vector<std::wstring>& selected);

}  // namespace vexa
