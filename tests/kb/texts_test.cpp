// The texts of the knowledgebase list: sizes, dates, numbers of documents; and its columns.
#include "common/error.h"
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

constexpr SizeCase SIZES[] = {
    {-1, L"-1 Byte"},   {0, L"0 Byte"},        {1, L"1 Byte"},          {1023, L"1023 Byte"},
    {1024, L"1 KB"},    {1025, L"1 KB"},       {1535, L"1 KB"},         {1536, L"2 KB"},
    {1537, L"2 KB"},    {2559, L"2 KB"},       {2560, L"2 KB"},         {2561, L"3 KB"},
    {3584, L"4 KB"},    {1048063, L"1023 KB"}, {1048064, L"1024 KB"},   {1048575, L"1024 KB"},
    {1048576, L"1 MB"}, {1572863, L"1 MB"},    {1572864, L"2 MB"},      {2621439, L"2 MB"},
    {2621440, L"2 MB"}, {2621441, L"3 MB"},    {2147483647, L"2048 MB"}};

TEST(KBSizes, AreShownInWholeUnitsWithHalvesToEven) {
    for (const SizeCase& size : SIZES) EXPECT_EQ(sizeText(size.bytes), size.text) << size.bytes;
}

// --- Dates ------------------------------------------------------------------------------------------------

struct DateCase {
    double serial;
    const wchar_t* text;
};

constexpr DateCase DATES[] = {{0, L"12/30/1899 12:00:00 AM"},
                              {0.25, L"12/30/1899 06:00:00 AM"},
                              {0.5, L"12/30/1899 12:00:00 PM"},
                              {1, L"12/31/1899 12:00:00 AM"},
                              {2, L"01/01/1900 12:00:00 AM"},
                              {-1, L"12/29/1899 12:00:00 AM"},
                              {-1.25, L"12/29/1899 06:00:00 AM"},
                              {36526, L"01/01/2000 12:00:00 AM"},
                              {36584.999, L"02/28/2000 11:58:34 PM"},
                              {36585, L"02/29/2000 12:00:00 AM"},
                              {43831.5, L"01/01/2020 12:00:00 PM"},
                              {43831.5 + 1.0 / 86400, L"01/01/2020 12:00:01 PM"},
                              {43831.75, L"01/01/2020 06:00:00 PM"},
                              {43831.999988426, L"01/01/2020 11:59:59 PM"},
                              {43831.999994212, L"01/01/2020 11:59:59 PM"},
                              {43831.999995, L"01/02/2020 12:00:00 AM"},
                              {43830.9999999, L"01/01/2020 12:00:00 AM"},
                              {49710.1347, L"02/05/2036 03:13:58 AM"},
                              {2958465.5, L"12/31/9999 12:00:00 PM"},
                              {-657434, L"01/01/0100 12:00:00 AM"},
                              {-657434.999, L"01/01/0100 11:58:34 PM"},
                              {2958465.99998, L"12/31/9999 11:59:58 PM"}};

TEST(KBDates, AreShownToTheSecondOnATwelveHourClock) {
    for (const DateCase& date : DATES) EXPECT_EQ(dateText(date.serial), date.text) << date.serial;
}

TEST(KBDates, AreReadBackAsTheyAreShown) {
    for (const DateCase& date : DATES) {
        // Seconds from 30 December 1899; the fraction of a serial below zero is the time of its day.
        const double day = std::trunc(date.serial);
        const double seconds = day * 86400 + std::round(std::fabs(date.serial - day) * 86400);
        EXPECT_EQ(dateFromText(date.text), static_cast<std::int64_t>(seconds)) << date.serial;
    }
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

TEST(KBDates, OutsideTheYears100To9999Overflow) {
    // The second rounds to the year 10000.
    for (const double serial :
         {2958466.0, 2958465.999999, -657435.0, 1e300, std::numeric_limits<double>::quiet_NaN()})
        EXPECT_EQ(errorOf([&] { return dateText(serial); }), L"Overflow") << serial;
}

TEST(KBDates, InAnotherFormMismatch) {
    for (const wchar_t* text : {L"", L"-", L"1/1/2020", L"13/01/2020 12:00:00 PM", L"02/30/2020 12:00:00 PM",
                                L"01/01/2020 12:00:00 PM ", L"xx/01/2020 12:00:00 PM"})
        EXPECT_EQ(errorOf([&] { return dateFromText(text); }), L"Type mismatch") << toUtf8(text);
}

// --- Numbers ----------------------------------------------------------------------------------------------

struct NumberCase {
    const wchar_t* text;
    std::optional<double> number;
};

constexpr NumberCase NUMBERS[] = {
    {L"-1", -1},
    {L"0", 0},
    {L"43831.5", 43831.5},
    {L"43831,5", 43831.5},
    {L" 43831.5 ", 43831.5},
    {L"+7", 7},
    {L".5", 0.5},
    {L"5.", 5},
    {L"1E-05", 1e-5},
    {L"4.38315E+4", 43831.5},
    {L"43831.123456789012345678901", 43831.12345678901},
    {L"", {}},
    {L"-", {}},
    {L".", {}},
    {L"1.2.3", {}},
    {L"1,234.5", {}},
    {L"1E", {}},
    {L"soon", {}},
    {L"12x", {}},
    {L"0x10", {}},
    {L"1 2", {}},
    // An exponent is a sign and digits and nothing else; zero is zero whatever its exponent.
    {L"1e2", 100},
    {L"1e+2", 100},
    {L"1E-2", 0.01},
    {L"1e2x", {}},
    {L"1e2 3", {}},
    {L"1e2.5", {}},
    {L"1e+", {}},
    {L"e2", {}},
    {L"1ee2", {}},
    {L"--1", {}},
    {L"+-1", {}},
    {L"0e999", 0},
    {L"-0.0E400", 0},
    // Digits that a double cannot hold still count.
    {L"100000000000000000", 1e17},
    {L"1000000000000000000000", 1e21},
    {L"0.1000000000000000000000", 0.1},
    {L"99999999999999999999", 1e20}};

TEST(KBNumbers, AreReadWithEitherDecimalSign) {
    for (const NumberCase& number : NUMBERS)
        EXPECT_EQ(numberFromText(number.text), number.number) << toUtf8(number.text);
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

// --- Columns ----------------------------------------------------------------------------------------------

/// A column's header, its width in per cent of the list's, and the codes of its sort.
struct Declared {
    const wchar_t* caption;
    int share;
    bool rightAligned;
    std::int32_t ascending;
    std::int32_t descending;
};

TEST(KBColumns, AreDeclaredOnceWithHeaderWidthAlignmentAndSort) {
    const Declared expected[] = {{L"Knowledgebase", 34, false, 0, 1},
                                 {L"Last Update", 31, false, 6, 6},
                                 {L"Size", 14, true, 8, 9},
                                 {L"Documents", 21, true, 0, 1}};
    const std::vector<vexa::ListColumn>& columns = vexa::listColumns();
    ASSERT_EQ(columns.size(), std::size(expected));
    int shares = 0;
    for (std::size_t index = 0; index < columns.size(); ++index) {
        SCOPED_TRACE(toUtf8(expected[index].caption));
        EXPECT_EQ(columns[index].header.caption, expected[index].caption);
        EXPECT_EQ(columns[index].header.share, expected[index].share);
        EXPECT_EQ(columns[index].header.rightAligned, expected[index].rightAligned);
        EXPECT_EQ(columns[index].sortRule.ascending, expected[index].ascending);
        EXPECT_EQ(columns[index].sortRule.descending, expected[index].descending);
        shares += columns[index].header.share;
    }
    EXPECT_EQ(shares, 100) << "they fill the list";
}

}  // namespace
}  // namespace tests
