// Which names a knowledgebase may bear.
#pragma once

#include <string>

namespace vexa {

/// Whether the name holds one of the characters that no key or file name takes: \ / : * ? " < > |
[[nodiscard]] bool holdsForbiddenCharacter(const std::wstring& name);

}  // namespace vexa
