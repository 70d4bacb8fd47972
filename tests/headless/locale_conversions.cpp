#include "tests/headless/locale_conversions.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <limits>

#include "common/error.h"
#include "tests/headless/letters.h"

namespace headless {
namespace {

bool isBlank(wchar_t character) {
    return character == L' ' || (character >= 9 && character <= 13) || character == 0xA0;
}
bool isDigit(wchar_t character) { return character >= L'0' && character <= L'9'; }

/// Reads a text from left to right.
class Reader {
public:
    explicit Reader(const std::wstring& text) : text_(text) {}
    [[nodiscard]] bool atEnd() const { return position_ >= text_.size(); }
    [[nodiscard]] wchar_t peek() const { return atEnd() ? L'\0' : text_[position_]; }
    bool take(const std::wstring& word) {
        if (word.empty() || text_.compare(position_, word.size(), word) != 0) return false;
        position_ += word.size();
        return true;
    }
    bool take(wchar_t character) { return take(std::wstring(1, character)); }
    /// In either case. `word` is in capitals.
    bool takeWord(const std::wstring& word) { return take(word) || take(lower(word)); }
    bool takeBlanks() { return !takeWhile(isBlank).empty(); }
    /// The narrow characters, or blanks, up to the first that does not belong.
    template <class Belongs>
    std::string takeWhile(Belongs belongs, std::size_t most = std::string::npos) {
        std::string taken;
        for (; !atEnd() && taken.size() < most && belongs(text_[position_]); ++position_)
            taken += static_cast<char>(text_[position_]);
        return taken;
    }

private:
    const std::wstring& text_;
    std::size_t position_ = 0;
};

/// The bounds of a date serial: the years 100 to 9999.
constexpr double FIRST_DATE = -657434.0;
constexpr double END_OF_DATES = 2958466.0;

[[noreturn]] void typeMismatch() { throw vexa::Error(L"Type mismatch"); }

/// A number as the system's parser takes it: blanks, signs before or one behind, parentheses, a currency
/// sign, digits with separators between thousands, a decimal point, an exponent; or &H and &O with digits.
class NumberParser {
public:
    NumberParser(const std::wstring& text, const Locale& locale) : reader_(text), locale_(locale) {}

    double parse() {
        takeLeading();
        if (reader_.take(L'&')) return takePlain();
        takeDigits();
        takeExponent();
        takeTrailing();
        if (!reader_.atEnd() || !anyDigit() || openParenthesis_) typeMismatch();
        return value();
    }

private:
    void takeLeading() {
        while (reader_.takeBlanks() || takeOnce(plus_, L'+') || takeOnce(minus_, L'-') ||
               takeOnce(openParenthesis_, L'(') || takeCurrency()) {
        }
        negative_ = minus_ || openParenthesis_;
    }
    void takeTrailing() {
        while (reader_.takeBlanks() || takeTrailingSign() || takeClosing() || takeCurrency()) {
        }
    }
    bool takeOnce(bool& taken, wchar_t character) {
        if (taken || !reader_.take(character)) return false;
        return taken = true;
    }
    bool takeTrailingSign() {
        if (plus_ || minus_) return false;
        if (takeOnce(minus_, L'-')) return negative_ = true;
        return takeOnce(plus_, L'+');
    }
    bool takeClosing() {
        if (!openParenthesis_ || !reader_.take(L')')) return false;
        openParenthesis_ = false;
        return true;
    }
    bool takeCurrency() {
        if (currency_ || !reader_.take(locale_.currency)) return false;
        return currency_ = true;
    }
    void takeDigits() {
        do digits_ += reader_.takeWhile(isDigit);
        while (takePoint() || (!digits_.empty() && reader_.take(locale_.thousandsSeparator)));
    }
    bool takePoint() {
        if (!takeOnce(point_, locale_.decimalPoint)) return false;
        digits_ += '.';
        return true;
    }
    [[nodiscard]] bool anyDigit() const { return std::ranges::any_of(digits_, isDigit); }
    void takeExponent() {
        if (!anyDigit() || !reader_.takeWord(L"E")) return;
        const bool negative = reader_.take(L'-');
        if (!negative) reader_.take(L'+');
        const std::string exponent = reader_.takeWhile(isDigit);
        if (exponent.empty()) typeMismatch();
        digits_ += (negative ? "e-" : "e") + exponent;
    }
    /// Hexadecimal or octal digits, with no regard to the locale.
    double takePlain() {
        const int base = reader_.takeWord(L"H") ? 16 : reader_.takeWord(L"O") ? 8 : 0;
        if (base == 0) typeMismatch();
        const std::string digits =
            reader_.takeWhile([](wchar_t character) { return !isBlank(character) && character < 0x80; });
        std::uint32_t number = 0;
        const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number, base);
        reader_.takeBlanks();
        if (error != std::errc() || end != digits.data() + digits.size() || !reader_.atEnd()) typeMismatch();
        return static_cast<std::int32_t>(number);
    }
    [[nodiscard]] double value() const {
        double number = 0;
        const auto [end, error] = std::from_chars(digits_.data(), digits_.data() + digits_.size(), number);
        if (error == std::errc::result_out_of_range) throw vexa::Error(L"Overflow");
        if (error != std::errc()) typeMismatch();
        return negative_ ? -number : number;
    }

    Reader reader_;
    const Locale& locale_;
    std::string digits_;
    bool point_ = false;
    bool plus_ = false;
    bool minus_ = false;
    bool negative_ = false;
    bool openParenthesis_ = false;
    bool currency_ = false;
};

/// "month/day/year hour:minute:second AM", each part of it where it is given.
class DateParser {
public:
    DateParser(const std::wstring& text, const Locale& locale) : reader_(text), locale_(locale) {}

    double parse() {
        reader_.takeBlanks();
        int first = takeNumber();
        double serial = 0;
        if (reader_.peek() != L':') {
            serial = takeDate(first);
            reader_.takeBlanks();
            if (reader_.atEnd()) return serial;
            first = takeNumber();
        }
        const double time = takeTime(first);
        reader_.takeBlanks();
        if (!reader_.atEnd()) typeMismatch();
        return serial < 0 ? serial - time : serial + time;
    }

private:
    int takeNumber() {
        const std::string digits = reader_.takeWhile(isDigit, 4);
        if (digits.empty()) typeMismatch();
        return std::stoi(digits);
    }
    void takeSeparator() {
        if (!reader_.take(L'/') && !reader_.take(L'-') && !reader_.take(L'.')) typeMismatch();
    }
    double takeDate(int first) {
        takeSeparator();
        const int second = takeNumber();
        takeSeparator();
        const int third = takeNumber();
        if (first > 31) return serialOf(first, second, third);
        return locale_.monthFirst ? serialOf(third, first, second) : serialOf(third, second, first);
    }
    /// A year of two digits lies between 1950 and 2049; a month above 12 is the day.
    static double serialOf(int year, int month, int day) {
        if (year < 50) year += 2000;
        if (year < 100) year += 1900;
        if (month > 12) std::swap(month, day);
        if (month < 1 || month > 12 || day < 1 || day > 31) typeMismatch();
        return static_cast<double>(dateSerial(year, month, day));
    }
    double takeTime(int hour) {
        int parts[3] = {hour, 0, 0};
        for (int index = 1; index < 3 && reader_.take(L':'); ++index) parts[index] = takeNumber();
        reader_.takeBlanks();
        const bool afternoon = reader_.takeWord(L"PM");
        const bool morning = !afternoon && reader_.takeWord(L"AM");
        if ((afternoon || morning) && parts[0] == 12) parts[0] = 0;
        if (afternoon) parts[0] += 12;
        if (parts[0] > 23 || parts[1] > 59 || parts[2] > 59) typeMismatch();
        return (parts[0] * 3600 + parts[1] * 60 + parts[2]) / 86400.0;
    }

    Reader reader_;
    const Locale& locale_;
};

}  // namespace

Locale english() { return {}; }

Locale german() { return {L',', L'.', L"\x20AC", false}; }

std::int32_t LocaleConversions::toInteger(const std::wstring& text) {
    const double rounded = std::nearbyint(toNumber(text));  // halves to even, the mode that is in force
    using Limits = std::numeric_limits<std::int32_t>;
    if (rounded < Limits::min() || rounded > Limits::max()) throw vexa::Error(L"Overflow");
    return static_cast<std::int32_t>(rounded);
}

double LocaleConversions::toNumber(const std::wstring& text) { return NumberParser(text, locale).parse(); }

double LocaleConversions::toDate(const std::wstring& text) {
    try {
        return DateParser(text, locale).parse();
    } catch (const vexa::Error&) {
        const double serial = toNumber(text);
        if (!(serial > FIRST_DATE - 1 && serial < END_OF_DATES)) typeMismatch();
        return serial;
    }
}

std::wstring LocaleConversions::lower(const std::wstring& text) { return headless::lower(text); }

std::int64_t dateSerial(int year, int month, int day) {
    using namespace std::chrono;
    const auto days = [](const year_month_day& date) { return sys_days(date).time_since_epoch().count(); };
    const year_month_day date(std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
                              std::chrono::day(static_cast<unsigned>(day)));
    if (!date.ok()) typeMismatch();
    constexpr year_month_day epoch(std::chrono::year(1899), December, std::chrono::day(30));
    return days(date) - days(epoch);
}

}  // namespace headless
