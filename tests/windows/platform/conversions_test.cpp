// The automation conversions of two locales, and letters in any script.
#include "windows/platform/conversions.h"

#include <gtest/gtest.h>

#include <windows.h>

#include "common/error.h"

namespace tests {
namespace {

constexpr LCID ENGLISH = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);
constexpr LCID GERMAN = MAKELCID(MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN), SORT_DEFAULT);

/// What a conversion gives: a number, or the description of its error.
template <class Convert>
std::wstring outcome(Convert convert) {
    try {
        return std::to_wstring(convert());
    } catch (const vexa::Error& error) {
        return error.description();
    }
}

struct Number {
    const char* name;
    LCID locale;
    std::wstring text;
    std::wstring integer;
};

class Numbers : public testing::TestWithParam<Number> {};

TEST_P(Numbers, ConvertToIntegers) {
    win::Conversions conversions(GetParam().locale);
    EXPECT_EQ(outcome([&] { return conversions.toInteger(GetParam().text); }), GetParam().integer);
}

INSTANTIATE_TEST_SUITE_P(Texts, Numbers,
                         testing::Values(Number{"Plain", ENGLISH, L"12", L"12"},
                                         Number{"Blanks", ENGLISH, L" 3.5 ", L"4"},
                                         Number{"HalfToEven", ENGLISH, L"2.5", L"2"},
                                         Number{"NegativeHalfToEven", ENGLISH, L"-2.5", L"-2"},
                                         Number{"Thousands", ENGLISH, L"1,234", L"1234"},
                                         Number{"Exponent", ENGLISH, L"1e3", L"1000"},
                                         Number{"GermanFraction", GERMAN, L"3,5", L"4"},
                                         Number{"GermanThousands", GERMAN, L"1.234", L"1234"},
                                         Number{"Greatest", ENGLISH, L"2147483647", L"2147483647"},
                                         Number{"Smallest", ENGLISH, L"-2147483648", L"-2147483648"},
                                         Number{"OneTooGreat", ENGLISH, L"2147483648", L"Overflow"},
                                         Number{"TooGreat", ENGLISH, L"99999999999", L"Overflow"},
                                         Number{"Empty", ENGLISH, L"", L"Type mismatch"},
                                         Number{"Letters", ENGLISH, L"abc", L"Type mismatch"},
                                         Number{"LettersBehind", ENGLISH, L"12abc", L"Type mismatch"},
                                         Number{"TwoNumbers", ENGLISH, L"1 2", L"Type mismatch"}),
                         [](const auto& row) { return row.param.name; });

TEST(Conversions, TextsBecomeNumbersByTheLocale) {
    EXPECT_DOUBLE_EQ(win::Conversions(ENGLISH).toNumber(L"45000.25"), 45000.25);
    EXPECT_DOUBLE_EQ(win::Conversions(GERMAN).toNumber(L"45000,25"), 45000.25);
    EXPECT_THROW(static_cast<void>(win::Conversions(ENGLISH).toNumber(L"never")), vexa::Error);
}

TEST(Conversions, TextsBecomeDates) {
    win::Conversions english(ENGLISH);
    EXPECT_DOUBLE_EQ(english.toDate(L"12/30/1899"), 0.0);
    EXPECT_DOUBLE_EQ(english.toDate(L"01/01/1900 06:00:00 PM"), 2.75);
    EXPECT_DOUBLE_EQ(english.toDate(L"07/25/2026 12:00:00 AM"), 46228.0);
    EXPECT_DOUBLE_EQ(win::Conversions(GERMAN).toDate(L"25.07.2026"), 46228.0);
}

TEST(Conversions, PlainNumbersAreDateSerials) {
    win::Conversions english(ENGLISH);
    EXPECT_DOUBLE_EQ(english.toDate(L"0"), 0.0);
    EXPECT_DOUBLE_EQ(english.toDate(L"-1"), -1.0);
    EXPECT_DOUBLE_EQ(english.toDate(L"45000.25"), 45000.25);
}

TEST(Conversions, WhatIsNoDateIsATypeMismatch) {
    for (const wchar_t* text : {L"", L"-", L"never", L"1e300", L"-657436", L"2958466"})
        EXPECT_EQ(outcome([&] { return win::Conversions(ENGLISH).toDate(text); }), L"Type mismatch") << text;
}

TEST(Conversions, LettersOfEveryScriptHaveALowerCase) {
    win::Conversions conversions;
    EXPECT_EQ(conversions.lower(L"\u00C4b\u0416\u03A9\u0130 1"), L"\u00E4b\u0436\u03C9\u0130 1");
    EXPECT_EQ(conversions.lower(L""), L"");
}

TEST(Conversions, TextGoesThroughTheCodePageAndBack) {
    win::AnsiCodec codec;
    EXPECT_EQ(codec.fromAnsi(codec.toAnsi(L"Gr\u00FC\u00DFe, 100 \u20AC")), L"Gr\u00FC\u00DFe, 100 \u20AC");
    EXPECT_EQ(codec.toAnsi(L"\u0416"), "?");
    EXPECT_EQ(codec.toAnsi(L""), "");
    EXPECT_EQ(codec.fromAnsi(""), L"");
}

}  // namespace
}  // namespace tests
