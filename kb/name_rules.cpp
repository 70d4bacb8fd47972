#include "kb/name_rules.h"

namespace vexa {

bool holdsForbiddenCharacter(const std::wstring& name) {
    return name.find_first_of(L"\\/:*?\"<>|") != std::wstring::npos;
}

}  // namespace vexa
