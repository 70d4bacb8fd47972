#include "kb/date_serial.h"

#include <algorithm>
#include <chrono>
#include <cmath>

#include "common/error.h"

namespace vexa {
namespace {

constexpr double FIRST_SERIAL = -657434;  // 1 January 100
constexpr double LAST_SERIAL = 2958465;   // 31 December 9999
constexpr std::int64_t SECONDS_PER_DAY = 86'400;
constexpr std::chrono::sys_days DAY_ZERO = std::chrono::year{1899} / 12 / 30;

bool isDigit(wchar_t character) { return character >= L'0' && character <= L'9'; }

std::wstring trimmed(const std::wstring& text) {
    const auto first = text.find_first_not_of(L' ');
    if (first == std::wstring::npos) return {};
    return text.substr(first, text.find_last_not_of(L' ') - first + 1);
}

/// Reads a number character by character.
class NumberReader {
public:
    explicit NumberReader(const std::wstring& text) : text_(text) {}

    std::optional<double> read() {
        const bool negative = sign();
        digits(0);
        if (take(L'.') || take(L',')) digits(-1);
        if (!anyDigit_ || !exponent() || position_ != text_.size()) return std::nullopt;
        const double number = scaled();
        return negative ? -number : number;
    }

private:
    bool take(wchar_t wanted) {
        if (position_ >= text_.size() || text_[position_] != wanted) return false;
        ++position_;
        return true;
    }

    bool sign() {
        if (take(L'-')) return true;
        take(L'+');
        return false;
    }

    /// Digits that a double cannot hold any more only move the decimal point.
    void digits(int step) {
        constexpr std::uint64_t FULL = 100'000'000'000'000'000;
        for (; position_ < text_.size() && isDigit(text_[position_]); ++position_) {
            anyDigit_ = true;
            if (mantissa_ < FULL) {
                mantissa_ = mantissa_ * 10 + static_cast<std::uint64_t>(text_[position_] - L'0');
                power_ += step;
            } else {
                power_ += step + 1;
            }
        }
    }

    bool exponent() {
        if (!take(L'E') && !take(L'e')) return true;
        const bool negative = sign();
        const std::size_t start = position_;
        int value = 0;
        for (; position_ < text_.size() && isDigit(text_[position_]); ++position_)
            value = std::min(value * 10 + static_cast<int>(text_[position_] - L'0'), 10'000);
        power_ += negative ? -value : value;
        return position_ > start;
    }

    [[nodiscard]] double scaled() const {
        if (mantissa_ == 0) return 0;  // whatever the exponent: 0 times infinity is no number
        const auto mantissa = static_cast<double>(mantissa_);
        return power_ < 0 ? mantissa / std::pow(10.0, -power_) : mantissa * std::pow(10.0, power_);
    }

    const std::wstring& text_;
    std::size_t position_ = 0;
    std::uint64_t mantissa_ = 0;
    int power_ = 0;
    bool anyDigit_ = false;
};

struct Moment {
    std::int64_t day;
    std::int64_t second;
};

Moment moment(double serial) {
    if (!(serial > FIRST_SERIAL - 1 && serial < LAST_SERIAL + 1)) throw Error(description::overflow);
    const double day = std::trunc(serial);
    Moment result{static_cast<std::int64_t>(day),
                  std::llround(std::fabs(serial - day) * static_cast<double>(SECONDS_PER_DAY))};
    if (result.second == SECONDS_PER_DAY) result = {result.day + 1, 0};
    if (result.day > static_cast<std::int64_t>(LAST_SERIAL) ||
        result.day < static_cast<std::int64_t>(FIRST_SERIAL))
        throw Error(description::overflow);
    return result;
}

std::wstring padded(std::int64_t number, std::size_t width) {
    std::wstring text = std::to_wstring(number);
    return text.size() < width ? std::wstring(width - text.size(), L'0') + text : text;
}

/// The number in the `length` digits from `start`.
int field(const std::wstring& text, std::size_t start, std::size_t length) {
    int number = 0;
    for (std::size_t index = start; index < start + length; ++index) {
        if (!isDigit(text[index])) throw Error(description::typeMismatch);
        number = number * 10 + static_cast<int>(text[index] - L'0');
    }
    return number;
}

}  // namespace

std::optional<double> numberFromText(const std::wstring& text) { return NumberReader(trimmed(text)).read(); }

std::wstring dateText(double serial) {
    const Moment at = moment(serial);
    const std::chrono::year_month_day date{DAY_ZERO + std::chrono::days(at.day)};
    const std::int64_t hour = at.second / 3600;
    const std::int64_t hourOnDial = hour % 12 == 0 ? 12 : hour % 12;
    return padded(static_cast<unsigned>(date.month()), 2) + L'/' +
           padded(static_cast<unsigned>(date.day()), 2) + L'/' + padded(static_cast<int>(date.year()), 4) +
           L' ' + padded(hourOnDial, 2) + L':' + padded(at.second / 60 % 60, 2) + L':' +
           padded(at.second % 60, 2) + (hour < 12 ? L" AM" : L" PM");
}

std::int64_t dateFromText(const std::wstring& text) {
    if (text == L"0") return 0;
    constexpr std::size_t LENGTH = 22;
    if (text.size() != LENGTH) throw Error(description::typeMismatch);
    const std::chrono::year_month_day date{std::chrono::year(field(text, 6, 4)),
                                           std::chrono::month(static_cast<unsigned>(field(text, 0, 2))),
                                           std::chrono::day(static_cast<unsigned>(field(text, 3, 2)))};
    if (!date.ok()) throw Error(description::typeMismatch);
    const std::int64_t hour = field(text, 11, 2) % 12 + (text[20] == L'P' ? 12 : 0);
    const std::int64_t minute = field(text, 14, 2);
    const std::int64_t day = (std::chrono::sys_days(date) - DAY_ZERO).count();
    return day * SECONDS_PER_DAY + hour * 3600 + minute * 60 + field(text, 17, 2);
}

}  // namespace vexa
