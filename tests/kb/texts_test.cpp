// The texts of the knowledgebase list: sizes, dates, numbers of documents.
#include "kb/date_serial.h"
#include "kb/list_columns.h"
#include "tests/stage/form_test.h"
#include "tests/support/text.h"

namespace tests {
namespace {

using vexa::dateFromText;
using vexa::dateText;
using vexa::numberFromText;
using vexa::sizeText;

// --- Sizes ------------------------------------------------------------------------------------------------

struct SizeCase {
    std::int32_t bytes;
    const wchar_t* text;
};

class KBSizes : public testing::TestWithParam<SizeCase> {};

TEST_P(KBSizes, AreShownInWholeUnitsWithHalvesToEven) {
    EXPECT_EQ(sizeText(GetParam().bytes), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Boundaries, KBSizes,
    testing::Values(SizeCase{-1, L"-1 Byte"}, SizeCase{0, L"0 Byte"}, SizeCase{1, L"1 Byte"},
                    SizeCase{1023, L"1023 Byte"}, SizeCase{1024, L"1 KB"}, SizeCase{1025, L"1 KB"},
                    SizeCase{1535, L"1 KB"}, SizeCase{1536, L"2 KB"}, SizeCase{1537, L"2 KB"},
                    SizeCase{2559, L"2 KB"}, SizeCase{2560, L"2 KB"}, SizeCase{2561, L"3 KB"},
                    SizeCase{3584, L"4 KB"}, SizeCase{1048063, L"1023 KB"}, SizeCase{1048064, L"1024 KB"},
                    SizeCase{1048575, L"1024 KB"}, SizeCase{1048576, L"1 MB"}, SizeCase{1572863, L"1 MB"},
                    SizeCase{1572864, L"2 MB"}, SizeCase{2621439, L"2 MB"}, SizeCase{2621440, L"2 MB"},
                    SizeCase{2621441, L"3 MB"}, SizeCase{2147483647, L"2048 MB"}));

// --- Dates ------------------------------------------------------------------------------------------------

struct DateCase {
    double serial;
    const wchar_t* text;
};

class KBDates : public testing::TestWithParam<DateCase> {};

TEST_P(KBDates, AreShownToTheSecondOnATwelveHourClock) {
    EXPECT_EQ(dateText(GetParam().serial), GetParam().text);
}

TEST_P(KBDates, AreReadBackAsTheyAreShown) {
    // Seconds from 30 December 1899; the fraction of a serial below zero is the time of its day.
    const double day = std::trunc(GetParam().serial);
    const double seconds = day * 86400 + std::round(std::fabs(GetParam().serial - day) * 86400);
    EXPECT_EQ(dateFromText(GetParam().text), static_cast<std::int64_t>(seconds));
}

INSTANTIATE_TEST_SUITE_P(
    Moments, KBDates,
    testing::Values(
        DateCase{0, L"12/30/1899 12:00:00 AM"}, DateCase{0.25, L"12/30/1899 06:00:00 AM"},
        DateCase{0.5, L"12/30/1899 12:00:00 PM"}, DateCase{1, L"12/31/1899 12:00:00 AM"},
        DateCase{2, L"01/01/1900 12:00:00 AM"}, DateCase{-1, L"12/29/1899 12:00:00 AM"},
        DateCase{-1.25, L"12/29/1899 06:00:00 AM"}, DateCase{36526, L"01/01/2000 12:00:00 AM"},
        DateCase{36584.999, L"02/28/2000 11:58:34 PM"}, DateCase{36585, L"02/29/2000 12:00:00 AM"},
        DateCase{43831.5, L"01/01/2020 12:00:00 PM"},
        DateCase{43831.5 + 1.0 / 86400, L"01/01/2020 12:00:01 PM"},
        DateCase{43831.75, L"01/01/2020 06:00:00 PM"}, DateCase{43831.999988426, L"01/01/2020 11:59:59 PM"},
        DateCase{43831.999994212, L"01/01/2020 11:59:59 PM"},
        DateCase{43831.999995, L"01/02/2020 12:00:00 AM"}, DateCase{43830.9999999, L"01/01/2020 12:00:00 AM"},
        DateCase{49710.1347, L"02/05/2036 03:13:58 AM"}, DateCase{2958465.5, L"12/31/9999 12:00:00 PM"},
        DateCase{-657434, L"01/01/0100 12:00:00 AM"}));

TEST(KBDateRange, NoDateIsOutsideTheYears100To9999) {
    EXPECT_THROW(static_cast<void>(dateText(2958466)), vexa::Error);
    EXPECT_THROW(static_cast<void>(dateText(2958465.999999)), vexa::Error) << "rounds to the year 10000";
    EXPECT_THROW(static_cast<void>(dateText(-657435)), vexa::Error);
    EXPECT_THROW(static_cast<void>(dateText(1e300)), vexa::Error);
    EXPECT_THROW(static_cast<void>(dateText(std::numeric_limits<double>::quiet_NaN())), vexa::Error);
}

TEST(KBDateTexts, ATextInAnotherFormIsNoDate) {
    for (const wchar_t* text : {L"", L"-", L"1/1/2020", L"13/01/2020 12:00:00 PM", L"02/30/2020 12:00:00 PM",
                                L"01/01/2020 12:00:00 PM ", L"xx/01/2020 12:00:00 PM"})
        EXPECT_THROW(static_cast<void>(dateFromText(text)), vexa::Error) << toUtf8(text);
}

struct NumberCase {
    const wchar_t* text;
    std::optional<double> number;
};

class KBNumbers : public testing::TestWithParam<NumberCase> {};

TEST_P(KBNumbers, AreReadWithEitherDecimalSign) {
    EXPECT_EQ(numberFromText(GetParam().text), GetParam().number) << toUtf8(GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, KBNumbers,
    testing::Values(NumberCase{L"-1", -1}, NumberCase{L"0", 0}, NumberCase{L"43831.5", 43831.5},
                    NumberCase{L"43831,5", 43831.5}, NumberCase{L" 43831.5 ", 43831.5}, NumberCase{L"+7", 7},
                    NumberCase{L".5", 0.5}, NumberCase{L"5.", 5}, NumberCase{L"1E-05", 1e-5},
                    NumberCase{L"4.38315E+4", 43831.5},
                    NumberCase{L"43831.123456789012345678901", 43831.12345678901}, NumberCase{L"", {}},
                    NumberCase{L"-", {}}, NumberCase{L".", {}}, NumberCase{L"1.2.3", {}},
                    NumberCase{L"1,234.5", {}}, NumberCase{L"1E", {}}, NumberCase{L"soon", {}},
                    NumberCase{L"12x", {}}, NumberCase{L"0x10", {}}, NumberCase{L"1 2", {}}));

TEST(KBNumberTexts, ZeroIsZeroWhateverItsExponent) {
    EXPECT_EQ(numberFromText(L"0e999"), 0);
    EXPECT_EQ(numberFromText(L"-0.0E400"), 0);
}

// --- Rows -------------------------------------------------------------------------------------------------

TEST(KBDocuments, AreRightAlignedToEightCharacters) {
    EXPECT_EQ(vexa::documentsText(0), L"       0");
    EXPECT_EQ(vexa::documentsText(120), L"     120");
    EXPECT_EQ(vexa::documentsText(12345678), L"12345678");
    EXPECT_EQ(vexa::documentsText(2147483647), L"2147483647");
    EXPECT_EQ(vexa::documentsText(-1), L"-");
    EXPECT_EQ(vexa::documentsText(-2), L"      -2");
}

class KBRows : public FormTest {
protected:
    ui::GridRow rowOf(const vexa::KnowledgebaseRecord& record) {
        return vexa::knowledgebaseRow(record, application.platform.conversions);
    }
};

TEST_F(KBRows, AKnowledgebaseNeverUpdatedShowsADashForItsDateAndItsSizeWhateverTheSize) {
    const ui::GridRow row = rowOf({L"Mail", L"-1", 2048, 5});
    EXPECT_EQ(row.cells[1].text, L"-");
    EXPECT_EQ(row.cells[2].text, L"-");
    EXPECT_EQ(row.cells[2].number, 2048) << "the size is kept for sorting all the same";
}

TEST_F(KBRows, AnUnknownSizeIsKeptAs0ForSorting) {
    EXPECT_EQ(rowOf({L"Mail", L"43831.5", -1, 5}).cells[2].number, 0);
}

TEST_F(KBRows, AnUpdatedKnowledgebaseShowsDateSizeAndDocuments) {
    const ui::GridRow row = rowOf({L"Mail", L"43831.5", 1048576, 5});
    EXPECT_EQ(row.cells[0].text, L"Mail");
    EXPECT_EQ(row.cells[1].text, L"01/01/2020 12:00:00 PM");
    EXPECT_EQ(row.cells[2].text, L"1 MB");
    EXPECT_EQ(row.cells[3].text, L"       5");
    EXPECT_NE(row.picture, 0);
    EXPECT_TRUE(row.enabled);
}

TEST_F(KBRows, TheNumberMinusOneInOtherWordsHidesTheSizeOnly) {
    const ui::GridRow row = rowOf({L"Mail", L"-1.0", 2048, 5});
    EXPECT_EQ(row.cells[1].text, L"12/29/1899 12:00:00 AM");
    EXPECT_EQ(row.cells[2].text, L"-");
}

TEST_F(KBRows, ADateThatIsNoDateIsAnError) {
    EXPECT_THROW(rowOf({L"Mail", L"soon", 1, 1}), vexa::Error);
    EXPECT_THROW(rowOf({L"Mail", L"99999999", 1, 1}), vexa::Error);
}

}  // namespace
}  // namespace tests
