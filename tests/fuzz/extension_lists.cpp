// Any two texts as lists of extensions: what is written is read back, and the lists share nothing.
#include <algorithm>
#include <set>

#include "settings/extension_list.h"
#include "tests/fuzz/input.h"

namespace {

using fuzz::require;

const std::wstring COMMON = L";;;docxtpf. \\\xE4";

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const std::wstring text = input.takeText(120, COMMON);
    const auto available = vexa::splitExtensions(text);
    const auto selected = vexa::splitExtensions(input.takeText(120, COMMON));
    const std::wstring written = vexa::joinExtensions(available);
    require(text.starts_with(written), "a list is not written as it was read");
    require(text.find(L';', written.size()) == std::wstring::npos, "an extension was dropped");
    require(vexa::splitExtensions(written) == available, "a list is not read as it was written");

    const auto remaining = vexa::withoutSelected(available, selected);
    const std::set<std::wstring> taken(selected.begin(), selected.end());
    const auto isTaken = [&](const std::wstring& extension) { return taken.contains(extension); };
    require(std::ranges::none_of(remaining, isTaken), "a selected extension is available");
    const auto all = static_cast<std::size_t>(std::ranges::count_if(available, isTaken)) + remaining.size();
    require(all == available.size(), "an extension came or went");
    return 0;
}
