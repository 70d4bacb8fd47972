// The locale-aware conversions that both back ends must agree on.
#include <gtest/gtest.h>

#include <optional>

#include "tests/stage/form_test.h"
#include "tests/support/text.h"

namespace tests {
namespace {

class ConversionsTest : public FormTest {
protected:
    /// Nothing where the text does not convert.
    [[nodiscard]] std::optional<std::int32_t> integer(const std::wstring& text) {
        try {
            return application.platform.conversions.toInteger(text);
        } catch (const vexa::Error&) {
            return {};
        }
    }
    /// The description of the error; empty where there is none.
    template <class Convert>
    [[nodiscard]] static std::wstring failure(Convert convert) {
        try {
            static_cast<void>(convert());
            return L"";
        } catch (const vexa::Error& error) {
            return error.description();
        }
    }
    [[nodiscard]] double date(const std::wstring& text) {
        return application.platform.conversions.toDate(text);
    }
};

struct IntegerCase {
    const wchar_t* text;
    std::optional<std::int32_t> english;
    std::optional<std::int32_t> german;
};

constexpr std::nullopt_t NONE = std::nullopt;

const IntegerCase INTEGERS[] = {
    // blanks and signs
    {L"12", 12, 12},
    {L" 12 ", 12, 12},
    {L"\t12\r\n", 12, 12},
    {L"\xA0"
     L"12",
     12, 12},
    {L"+12", 12, 12},
    {L"-12", -12, -12},
    {L"- 12", -12, -12},
    {L"12-", -12, -12},
    {L"12 -", -12, -12},
    {L"+-12", -12, -12},
    {L"--12", NONE, NONE},
    {L"(12)", -12, -12},
    {L"(12", NONE, NONE},
    {L"12)", NONE, NONE},
    {L"1 2", NONE, NONE},
    {L"1-2", NONE, NONE},
    // fractions: halves to even
    {L"0.5", 0, 5},
    {L"1.5", 2, 15},
    {L"2.5", 2, 25},
    {L"3.5", 4, 35},
    {L"-2.5", -2, -25},
    {L"0,5", 5, 0},
    {L"1,5", 15, 2},
    {L"2,5", 25, 2},
    {L".5", 0, NONE},
    {L",5", NONE, 0},
    {L"5.", 5, 5},
    {L".", NONE, NONE},
    {L"1.2.3", NONE, 123},
    // thousands
    {L"1,234", 1234, 1},
    {L"1.234", 1, 1234},
    {L"1,234.5", 1234, 1},
    {L"1'234", NONE, NONE},
    {L"1 234", NONE, NONE},
    // currency
    {L"$12", 12, NONE},
    {L"12$", 12, NONE},
    {L"-$12", -12, NONE},
    {L"\x20AC"
     L"12",
     NONE, 12},
    // exponents and other bases
    {L"1e3", 1000, 1000},
    {L"1E+3", 1000, 1000},
    {L"1e-1", 0, 0},
    {L"1e", NONE, NONE},
    {L"e5", NONE, NONE},
    {L"&H10", 16, 16},
    {L"&h1f", 31, 31},
    {L"&O17", 15, 15},
    {L"0x10", NONE, NONE},
    // 32 bits
    {L"2147483647", 2147483647, 2147483647},
    {L"2147483648", NONE, NONE},
    {L"-2147483648", -2147483647 - 1, -2147483647 - 1},
    {L"-2147483649", NONE, NONE},
    {L"99999999999999999999", NONE, NONE},
    {L"1e400", NONE, NONE},
    {L"00012", 12, 12},
    // no numbers
    {L"", NONE, NONE},
    {L" ", NONE, NONE},
    {L"abc", NONE, NONE},
    {L"12abc", NONE, NONE},
    {L"True", NONE, NONE},
    {L"\xFF11\xFF12", NONE, NONE},
};

TEST_F(ConversionsTest, TextsBecomeIntegersByTheRulesOfTheLocale) {
    for (const IntegerCase& one : INTEGERS) EXPECT_EQ(integer(one.text), one.english) << toUtf8(one.text);
}

TEST_F(ConversionsTest, ADecimalCommaSwapsPointAndComma) {
    stage->useDecimalComma();
    for (const IntegerCase& one : INTEGERS) EXPECT_EQ(integer(one.text), one.german) << toUtf8(one.text);
}

TEST_F(ConversionsTest, TheDescriptionTellsATextFromANumberThatIsTooLarge) {
    const auto failureOf = [&](const wchar_t* text) {
        return failure([&] { return application.platform.conversions.toInteger(text); });
    };
    for (const wchar_t* text : {L"abc", L"", L"12abc", L"1 2"})
        EXPECT_EQ(failureOf(text), L"Type mismatch") << toUtf8(text);
    for (const wchar_t* text : {L"2147483648", L"99999999999"})
        EXPECT_EQ(failureOf(text), L"Overflow") << toUtf8(text);
}

TEST_F(ConversionsTest, DatesAreDaysSinceTheEndOf1899) {
    EXPECT_EQ(date(L"12/30/1899 12:00:00 AM"), 0);
    EXPECT_EQ(date(L"12/30/1899 12:30:00 PM"), 12.5 / 24);
    EXPECT_EQ(date(L"12/29/1899 12:00:00 PM"), -1.5) << "the fraction counts away from zero";
    EXPECT_NEAR(date(L"03/02/2026 09:05:07 AM"), 46083 + (9 * 3600 + 5 * 60 + 7) / 86400.0, 1e-9);
    EXPECT_EQ(date(L"13/2/2003"), 37665) << "13 can only be the day";
    EXPECT_EQ(date(L"2003-04-05"), 37716);
    EXPECT_EQ(date(L"13:30"), 13.5 / 24);
    stage->useDecimalComma();
    EXPECT_EQ(date(L"25.07.2026"), 46228);
}

TEST_F(ConversionsTest, APlainNumberIsADateSerial) {
    EXPECT_EQ(date(L"0"), 0);
    EXPECT_EQ(date(L"38000.5"), 38000.5);
    EXPECT_EQ(date(L" -1,234.25 "), -1234.25);
    stage->useDecimalComma();
    EXPECT_EQ(date(L"38000,5"), 38000.5);
}

TEST_F(ConversionsTest, WhatIsNoDateIsRefused) {
    for (const wchar_t* text :
         {L"", L"abc", L"-", L"02/30/2003", L"24:00:00", L"9999999", L"1e300", L"-657436", L"2958466"})
        EXPECT_EQ(failure([&] { return date(text); }), L"Type mismatch") << toUtf8(text);
}

TEST_F(ConversionsTest, LettersOfEveryScriptBecomeSmall) {
    EXPECT_EQ(application.platform.conversions.lower(L"Mail \xC4\xD6\xDC \x391\x3A9 \x416\x401 \x141"),
              L"mail \xE4\xF6\xFC \x3B1\x3C9 \x436\x451 \x142");
    EXPECT_EQ(application.platform.conversions.lower(L"1_\xD7\xDF"), L"1_\xD7\xDF")
        << "no letters with a small form";
    EXPECT_EQ(application.platform.conversions.lower(L"\x130 1"), L"\x130 1");
    EXPECT_EQ(application.platform.conversions.lower(L""), L"");
}

TEST_F(ConversionsTest, TheCodePageKeepsWesternTextAndMarksWhatItLacks) {
    vexa::AnsiCodec& ansi = application.platform.ansi;
    EXPECT_EQ(ansi.toAnsi(L"M\xFCller \x20AC"), "M\xFCller \x80");
    EXPECT_EQ(ansi.fromAnsi("M\xFCller \x80"), L"M\xFCller \x20AC");
    EXPECT_EQ(ansi.toAnsi(L"\x416\x4E2D"), "??");
    EXPECT_EQ(ansi.toAnsi(L""), "");
    EXPECT_EQ(ansi.fromAnsi(""), L"");
}

}  // namespace
}  // namespace tests
