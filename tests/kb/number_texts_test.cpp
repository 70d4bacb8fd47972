// Numbers and dates at the edges of what the list takes.
#include "kb/date_serial.h"

#include <gtest/gtest.h>

#include "common/error.h"
#include "tests/support/text.h"

namespace tests {
namespace {

struct EdgeNumber {
    const wchar_t* text;
    std::optional<double> number;
};

TEST(KBNumberEdges, AnExponentIsASignAndDigitsAndNothingElse) {
    for (const EdgeNumber& edge :
         {EdgeNumber{L"1e2", 100}, EdgeNumber{L"1e+2", 100}, EdgeNumber{L"1E-2", 0.01},
          EdgeNumber{L"1e2x", {}}, EdgeNumber{L"1e2 3", {}}, EdgeNumber{L"1e2.5", {}}, EdgeNumber{L"1e+", {}},
          EdgeNumber{L"e2", {}}, EdgeNumber{L"1ee2", {}}, EdgeNumber{L"--1", {}}, EdgeNumber{L"+-1", {}}})
        EXPECT_EQ(vexa::numberFromText(edge.text), edge.number) << toUtf8(edge.text);
}

TEST(KBNumberEdges, DigitsThatADoubleCannotHoldStillCount) {
    EXPECT_EQ(vexa::numberFromText(L"100000000000000000"), 1e17);
    EXPECT_EQ(vexa::numberFromText(L"1000000000000000000000"), 1e21);
    EXPECT_EQ(vexa::numberFromText(L"0.1000000000000000000000"), 0.1);
    EXPECT_EQ(vexa::numberFromText(L"99999999999999999999"), 1e20);
}

TEST(KBDateEdges, TheFirstAndTheLastDayAreShownWhole) {
    EXPECT_EQ(vexa::dateText(-657434.999), L"01/01/0100 11:58:34 PM");
    EXPECT_EQ(vexa::dateText(2958465.99998), L"12/31/9999 11:59:58 PM");
}

/// What the log is told.
template <class Deed>
std::wstring errorOf(Deed deed) {
    try {
        static_cast<void>(deed());
        return L"(none)";
    } catch (const vexa::Error& error) {
        return error.description();
    }
}

TEST(KBDateEdges, WhatLiesOutsideOverflowsAndWhatIsNoDateMismatches) {
    for (const double serial : {-657435.0, 2958466.0, 2958465.999999})
        EXPECT_EQ(errorOf([&] { return vexa::dateText(serial); }), L"Overflow") << serial;
    for (const wchar_t* text : {L"1/1/2020", L"02/30/2020 12:00:00 PM", L"xx/01/2020 12:00:00 PM"})
        EXPECT_EQ(errorOf([&] { return vexa::dateFromText(text); }), L"Type mismatch") << toUtf8(text);
}

}  // namespace
}  // namespace tests
