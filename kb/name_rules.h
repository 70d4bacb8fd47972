// Which names a knowledgebase may bear.
#pragma once

#include <string>

namespace vexa {

/// Whether the name holds one of the characters that no key or file name takes: \ / : * ? " < > |
[[nodiscard]] inline bool holdsForbiddenCharacter(const std::wstring& name) {
    return name.find_first_of(L"\\/:*?\"<>|") != std::wstring::npos;
}

}  // namespace vexa
