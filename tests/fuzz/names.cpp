// Any text as a knowledgebase's name: refused if and only if one of its characters is forbidden.
#include <algorithm>

#include "kb/name_rules.h"
#include "tests/fuzz/input.h"

namespace {

const std::wstring FORBIDDEN = L"\\/:*?\"<>|";
const std::wstring COMMON = L"\\/:*?\"<>|ab. \t\x00E4\x3000\xFF0F";

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    while (!input.atEnd()) {
        const std::wstring name = input.takeText(40, COMMON);
        const bool forbidden = std::ranges::any_of(
            name, [](wchar_t character) { return FORBIDDEN.find(character) != std::wstring::npos; });
        fuzz::require(vexa::holdsForbiddenCharacter(name) == forbidden, "a name is judged wrongly");
    }
    return 0;
}
