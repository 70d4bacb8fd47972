// The registry store on the real registry: what the narrow functions make of odd and broken values.
#include "common/modRegistry.h"

#include <gtest/gtest.h>

#include <windows.h>

#include "tests/windows/stage/scratch_registry.h"
#include "windows/platform/conversions.h"
#include "windows/platform/registry.h"

namespace tests {
namespace {

using vexa::Bytes;
using vexa::HKEY_CURRENT_USER_HIVE;
using vexa::Value;
using vexa::ValueType;

constexpr const wchar_t* KEY = L"Software\\Norvane\\Quillmark";

Bytes bytes(const std::string& text) { return {text.begin(), text.end()}; }

class RegistryTest : public testing::Test {
protected:
    Value read(const Value& defaultValue, const std::wstring& key = KEY) {
        return store.RegistryRead(HKEY_CURRENT_USER_HIVE, key, L"Value", defaultValue);
    }
    void write(ValueType type, const Value& value, const std::wstring& key = KEY) {
        store.RegistryWrite(HKEY_CURRENT_USER_HIVE, key, L"Value", type, value);
    }

    ScratchRegistry hive;
    win::Registry registry;
    win::AnsiCodec ansi;
    win::Conversions conversions;
    vexa::modRegistry store{registry, ansi, conversions};
};

// --- Reading ----------------------------------------------------------------------------------------------

struct StoredValue {
    const char* name;
    std::uint32_t type;
    Bytes data;
    Value read;  ///< with the default text "default"
};

const Value DEFAULT = std::wstring(L"default");

class StoredValues : public RegistryTest, public testing::WithParamInterface<StoredValue> {};

TEST_P(StoredValues, ReadAs) {
    hive.put(KEY, L"Value", GetParam().type, GetParam().data);
    EXPECT_EQ(read(DEFAULT), GetParam().read);
}

INSTANTIATE_TEST_SUITE_P(
    Types, StoredValues,
    testing::Values(StoredValue{"Text", REG_SZ, bytes(std::string("abc\0", 4)), std::wstring(L"abc")},
                    StoredValue{"EmptyText", REG_SZ, bytes(std::string("\0", 1)), std::wstring()},
                    StoredValue{"TextOfSizeZero", REG_SZ, {}, std::wstring()},
                    StoredValue{"TextWithoutTerminator", REG_SZ, bytes("abc"), std::wstring(L"abc")},
                    StoredValue{"TextWithNulInside", REG_SZ, bytes(std::string("abc\0def\0", 8)),
                                std::wstring(L"abc")},
                    StoredValue{"TextOfAnsiLetters", REG_SZ, bytes(std::string("\xE4\xF6\0", 3)),
                                std::wstring(L"\u00E4\u00F6")},
                    StoredValue{"TextToExpand", REG_EXPAND_SZ, bytes(std::string("%TEMP%\0", 7)), DEFAULT},
                    StoredValue{"SeveralTexts", REG_MULTI_SZ, bytes(std::string("a\0b\0\0", 5)), DEFAULT},
                    StoredValue{"Number", REG_DWORD, {0x04, 0x03, 0x02, 0x01}, 0x01020304},
                    StoredValue{"NegativeNumber", REG_DWORD, {0xFF, 0xFF, 0xFF, 0xFF}, -1},
                    StoredValue{"NumberOfTwoBytes", REG_DWORD, {0x04, 0x03}, 0x0304},
                    StoredValue{"NumberOfNoBytes", REG_DWORD, {}, 0},
                    StoredValue{"NumberOfEightBytes", REG_DWORD, {1, 0, 0, 0, 0, 0, 0, 0}, DEFAULT},
                    StoredValue{"LongNumber", REG_QWORD, {1, 0, 0, 0, 0, 0, 0, 0}, DEFAULT},
                    StoredValue{"NumberTheOtherWayRound", REG_DWORD_BIG_ENDIAN, {0, 0, 0, 1}, DEFAULT},
                    StoredValue{"Bytes", REG_BINARY, {1, 0, 2}, Bytes{1, 0, 2}},
                    StoredValue{"NoBytes", REG_BINARY, {}, DEFAULT},
                    StoredValue{"NoType", REG_NONE, {1, 2}, DEFAULT},
                    StoredValue{"UnknownType", 4711, {1, 2}, DEFAULT}),
    [](const auto& row) { return row.param.name; });

TEST_F(RegistryTest, AMissingKeyAndAMissingValueReadAsTheDefault) {
    EXPECT_EQ(read(7), Value(7));
    hive.put(KEY, L"Other", 1);
    EXPECT_EQ(read(7), Value(7));
}

TEST_F(RegistryTest, AKeyWithATrailingBackslashIsTheKeyItself) {
    hive.put(KEY, L"Value", 5);
    EXPECT_EQ(read(7, std::wstring(KEY) + L"\\"), Value(5));
}

TEST_F(RegistryTest, ATextOfAMegabyteIsReadWhole) {
    const std::wstring text(1'000'000, L'x');
    hive.put(KEY, L"Value", text);
    EXPECT_EQ(read(DEFAULT), Value(text));
}

// --- Writing and deleting ---------------------------------------------------------------------------------

TEST_F(RegistryTest, WritingCreatesTheWholePath) {
    write(ValueType::integer, -5, L"Software\\Some\\Where\\Deep");
    EXPECT_EQ(hive.get(L"Software\\Some\\Where\\Deep", L"Value"), Value(-5));
}

TEST_F(RegistryTest, EachTypeIsWrittenAndReadBack) {
    for (const auto& [type, value] :
         std::vector<std::pair<ValueType, Value>>{{ValueType::text, std::wstring(L"Stra\u00DFe")},
                                                  {ValueType::text, std::wstring()},
                                                  {ValueType::integer, static_cast<std::int32_t>(0x80000000)},
                                                  {ValueType::binary, Bytes{0, 1, 255}}}) {
        write(type, value);
        EXPECT_EQ(read(DEFAULT), value);
    }
}

TEST_F(RegistryTest, CharactersThatTheCodePageLacksBecomeQuestionMarks) {
    write(ValueType::text, std::wstring(L"a\u0416b"));
    EXPECT_EQ(read(DEFAULT), Value(std::wstring(L"a?b")));
}

TEST_F(RegistryTest, AValueThatDoesNotConvertIsNotWritten) {
    write(ValueType::integer, 5);
    write(ValueType::integer, std::wstring(L"five"));
    EXPECT_EQ(read(7), Value(5));
}

TEST_F(RegistryTest, DeletingRemovesTheValueAndLeavesTheKey) {
    write(ValueType::integer, 5);
    hive.put(KEY, L"Other", 1);
    store.RegistryDelete(HKEY_CURRENT_USER_HIVE, KEY, L"Value");
    EXPECT_EQ(hive.get(KEY, L"Value"), std::nullopt);
    EXPECT_EQ(hive.get(KEY, L"Other"), Value(1));
}

TEST_F(RegistryTest, DeletingWhatIsMissingDoesNothing) {
    store.RegistryDelete(HKEY_CURRENT_USER_HIVE, KEY, L"Value");
    hive.put(KEY, L"Other", 1);
    store.RegistryDelete(HKEY_CURRENT_USER_HIVE, KEY, L"Value");
    EXPECT_EQ(hive.get(KEY, L"Other"), Value(1));
}

// --- Code pages ------------------------------------------------------------------------------------------

/// The code page of Japanese systems, where many characters take two bytes.
class JapaneseCodec : public vexa::AnsiCodec {
public:
    [[nodiscard]] std::string toAnsi(const std::wstring& text) override {
        std::string bytes(2 * text.size(), '\0');
        const int length =
            WideCharToMultiByte(CODE_PAGE, 0, text.data(), static_cast<int>(text.size()), bytes.data(),
                                static_cast<int>(bytes.size()), nullptr, nullptr);
        bytes.resize(static_cast<std::size_t>(length));
        return bytes;
    }
    [[nodiscard]] std::wstring fromAnsi(const std::string& bytes) override {
        return {bytes.begin(), bytes.end()};
    }

private:
    static constexpr UINT CODE_PAGE = 932;
};

TEST_F(RegistryTest, TheLengthOfAWrittenTextIsACountOfCharactersInACodePageOfManyBytes) {
    JapaneseCodec japanese;
    vexa::modRegistry japaneseStore(registry, japanese, conversions);
    const std::wstring japan = L"\u65E5\u672C";  // 93 FA 96 7B there
    japaneseStore.RegistryWrite(HKEY_CURRENT_USER_HIVE, KEY, L"Value", ValueType::text, japan);
    DWORD type = 0;
    char stored[16] = {};
    DWORD size = sizeof stored;
    ASSERT_EQ(RegGetValueA(HKEY_CURRENT_USER, "Software\\Norvane\\Quillmark", "Value",
                           RRF_RT_ANY | RRF_NOEXPAND, &type, stored, &size),
              ERROR_SUCCESS);
    EXPECT_EQ(type, static_cast<DWORD>(REG_SZ));
    // Two characters and the NUL are counted, so three of the four bytes are kept.
    EXPECT_EQ(std::string(stored).substr(0, 3), "\x93\xFA\x96");
    EXPECT_EQ(std::string(stored).size(), 3U);
}

}  // namespace
}  // namespace tests
