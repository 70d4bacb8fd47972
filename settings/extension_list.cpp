#include "settings/extension_list.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>

namespace vexa {
namespace {
constexpr wchar_t SEPARATOR = L';';
}

std::vector<std::wstring> splitExtensions(const std::wstring& list) {
    std::vector<std::wstring> extensions;
    std::size_t start = 0;
    for (std::size_t end = list.find(SEPARATOR); end != std::wstring::npos;
         end = list.find(SEPARATOR, start)) {
        extensions.push_back(list.substr(start, end - start));
        start = end + 1;
    }
    return extensions;
}

std::wstring joinExtensions(const std::vector<std::wstring>& extensions) {
    std::wstring list;
    for (const std::wstring& extension : extensions) list += extension + SEPARATOR;
    return list;
}

std::vector<std::wstring> withoutSelected(const std::vector<std::wstring>& available,
                                          const std::vector<std::wstring>& selected) {
    const std::unordered_set<std::wstring> taken(selected.begin(), selected.end());
    std::vector<std::wstring> remaining;
    std::ranges::copy_if(available, std::back_inserter(remaining),
                         [&](const std::wstring& extension) { return !taken.contains(extension); });
    return remaining;
}

}  // namespace vexa
