// Any text as a stored date: what converts shows a date of the years 100 to 9999 that is read back to the
// second, and what does not is an error of the program's own.
#include <cmath>
#include <cstdlib>

#include "common/error.h"
#include "kb/date_serial.h"
#include "tests/fuzz/input.h"

namespace {

using fuzz::require;

constexpr double SECONDS_A_DAY = 86'400;
constexpr std::size_t LONGEST = 24;
const std::wstring NUMBERS = L"00123456789.,-+ eE\xA0";
const std::wstring SHOWN = L"0123456789/: APM-";

/// Seconds from the first day; the fraction of a serial below zero counts forward, too.
double secondsOf(double serial) {
    const double day = std::trunc(serial);
    return day * SECONDS_A_DAY + std::fabs(serial - day) * SECONDS_A_DAY;
}

void checkStored(const std::wstring& text) {
    const auto serial = vexa::numberFromText(text);
    require(vexa::numberFromText(L" " + text + L" ") == serial, "blanks around a number count");
    if (!serial) return;
    require(!std::isnan(*serial), "a number that is none");
    try {
        const std::int64_t read = vexa::dateFromText(vexa::dateText(*serial));
        require(std::fabs(static_cast<double>(read) - secondsOf(*serial)) <= 1, "a date is not read back");
    } catch (const vexa::Error&) {
        require(*serial < -657'433 || *serial > 2'958'464, "a date of our years does not convert");
    }
}

void checkShown(const std::wstring& text) {
    try {
        static_cast<void>(vexa::dateFromText(text));
    } catch (const vexa::Error&) {
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    while (!input.atEnd()) {
        checkStored(input.takeText(LONGEST, NUMBERS));
        checkShown(input.takeText(LONGEST, SHOWN));
    }
    return 0;
}
