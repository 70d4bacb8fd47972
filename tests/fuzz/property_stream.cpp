// Any bytes as the stored properties of the control: they are refused or read, and what was read is written
// so that it is read again; no byte behind them is touched, and without their last one they are refused.
#include <cstring>
#include <span>

#include "common/error.h"
#include "page/property_bytes.h"
#include "tests/fuzz/input.h"

namespace {

using fuzz::require;
using Values = std::vector<vexa::PropertyValue>;

/// Of every kind.
Values fresh() {
    return {std::int32_t{0}, std::int32_t{0}, false, std::optional<vexa::StoredFont>(),
            std::int16_t{0}, std::int16_t{0}, false};
}

/// Reads from the front of `bytes`, which then begin behind what was read; false where they are refused.
bool read(std::span<const std::uint8_t>& bytes, Values& values) {
    try {
        vexa::readProperties(
            [&](void* to, std::size_t count) {
                if (count > bytes.size()) throw vexa::Error(L"The end");
                if (count > 0) std::memcpy(to, bytes.data(), count);
                bytes = bytes.subspan(count);
            },
            values);
        return true;
    } catch (const vexa::Error&) {
        return false;
    }
}

void checkWritten(const Values& values, std::size_t length) {
    const std::vector<std::uint8_t> written = vexa::propertiesToBytes(values);
    require(written.size() == length, "what is written is not as long as what was read");
    Values again = fresh();
    std::span<const std::uint8_t> bytes(written);
    require(read(bytes, again) && bytes.empty() && again == values, "what is written is not read again");
    for (std::size_t cut = 0; cut < written.size(); ++cut) {
        bytes = std::span(written).first(cut);
        require(!read(bytes, again), "properties that are cut off are read");
    }
}

}  // namespace

/// The first byte says whether the mark and the version stand before the others.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::vector<std::uint8_t> input;
    if (size > 0 && data[0] % 4 != 0) input = vexa::propertiesToBytes({});
    if (size > 0) input.insert(input.end(), data + 1, data + size);
    std::span<const std::uint8_t> bytes(input);
    Values values = fresh();
    if (read(bytes, values)) checkWritten(values, input.size() - bytes.size());
    return 0;
}
