// The registry store: what is read, written and deleted, call by call.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <new>

#include "tests/stage/form_test.h"
#include "tests/support/text.h"

namespace tests {
namespace {

using testing::ElementsAre;
using vexa::Bytes;
using vexa::Value;
using vexa::ValueType;

constexpr const wchar_t* KEY = L"Software\\Norvane\\Quillmark";
constexpr auto HIVE = vexa::HKEY_CURRENT_USER_HIVE;

constexpr std::uint32_t REG_NONE_TYPE = 0;
constexpr std::uint32_t REG_SZ_TYPE = 1;
constexpr std::uint32_t REG_EXPAND_SZ_TYPE = 2;
constexpr std::uint32_t REG_BINARY_TYPE = 3;
constexpr std::uint32_t REG_DWORD_TYPE = 4;
constexpr std::uint32_t REG_MULTI_SZ_TYPE = 7;
constexpr std::uint32_t QWORD_TYPE = 11;

Bytes bytesOf(const std::string& text) { return {text.begin(), text.end()}; }

class RegistryStore : public FormTest {
protected:
    [[nodiscard]] Value read(const std::wstring& name, const Value& defaultValue,
                             const std::wstring& key = KEY) {
        return application.registry.RegistryRead(HIVE, key, name, defaultValue);
    }
    void write(const std::wstring& name, ValueType type, const Value& value, const std::wstring& key = KEY) {
        application.registry.RegistryWrite(HIVE, key, name, type, value);
    }
    void remove(const std::wstring& name, const std::wstring& key = KEY) {
        application.registry.RegistryDelete(HIVE, key, name);
    }
};

// --- Reading ----------------------------------------------------------------------------------------------

TEST_F(RegistryStore, ATextOfSizeZeroReadsAsTheEmptyTextWhateverTheDefault) {
    stage->setRawValue(KEY, L"LogPath", REG_SZ_TYPE, {});
    EXPECT_EQ(read(L"LogPath", L"default"), Value(L""));
}

TEST_F(RegistryStore, ATextIsCutBeforeItsFirstNul) {
    stage->setRawValue(KEY, L"Name", REG_SZ_TYPE, bytesOf(std::string("abc\0def\0", 8)));
    EXPECT_EQ(read(L"Name", L""), Value(L"abc"));
}

TEST_F(RegistryStore, ATextWithoutNulReadsWhole) {
    stage->setRawValue(KEY, L"Name", REG_SZ_TYPE, bytesOf("abc"));
    EXPECT_EQ(read(L"Name", L""), Value(L"abc"));
}

TEST_F(RegistryStore, ATextThatIsOneNulReadsAsTheEmptyText) {
    stage->setRawValue(KEY, L"Name", REG_SZ_TYPE, {0});
    EXPECT_EQ(read(L"Name", L"default"), Value(L""));
}

TEST_F(RegistryStore, ATextStoredWhereANumberIsExpectedReadsAsText) {
    stage->setValue(KEY, L"MaxEntries", L"20");
    EXPECT_EQ(read(L"MaxEntries", 40), Value(L"20"));
}

TEST_F(RegistryStore, AnIntegerReadsWithItsSign) {
    stage->setValue(KEY, L"Number", -2147483647 - 1);
    EXPECT_EQ(read(L"Number", 7), Value(-2147483647 - 1));
    stage->setRawValue(KEY, L"Number", REG_DWORD_TYPE, {0xFF, 0xFF, 0xFF, 0xFF});
    EXPECT_EQ(read(L"Number", 7), Value(-1));
}

TEST_F(RegistryStore, AShortIntegerFillsItsLowBytes) {
    stage->setRawValue(KEY, L"Number", REG_DWORD_TYPE, {0x34, 0x12});
    EXPECT_EQ(read(L"Number", 7), Value(0x1234));
    stage->setRawValue(KEY, L"Number", REG_DWORD_TYPE, {});
    EXPECT_EQ(read(L"Number", 7), Value(0));
}

TEST_F(RegistryStore, AnIntegerThatIsTooLongReadsAsTheDefault) {
    stage->setRawValue(KEY, L"Number", REG_DWORD_TYPE, {1, 0, 0, 0, 0, 0, 0, 0});
    EXPECT_EQ(read(L"Number", 7), Value(7));
}

TEST_F(RegistryStore, BytesReadAsTheyAre) {
    const Bytes bytes{0, 1, 0xFF, 0};
    stage->setValue(KEY, L"Data", bytes);
    EXPECT_EQ(read(L"Data", 0), Value(bytes));
}

TEST_F(RegistryStore, BytesOfSizeZeroReadAsTheDefault) {
    stage->setRawValue(KEY, L"Data", REG_BINARY_TYPE, {});
    EXPECT_EQ(read(L"Data", L"default"), Value(L"default"));
}

TEST_F(RegistryStore, AnyOtherTypeReadsAsTheDefault) {
    const Bytes content = bytesOf(std::string("%TEMP%\0\0", 8));
    for (const std::uint32_t type :
         {REG_NONE_TYPE, REG_EXPAND_SZ_TYPE, 5U, 6U, REG_MULTI_SZ_TYPE, 8U, 9U, 10U, QWORD_TYPE, 0x12345U}) {
        stage->setRawValue(KEY, L"Other", type, content);
        EXPECT_EQ(read(L"Other", L"default"), Value(L"default")) << "type " << type;
    }
}

TEST_F(RegistryStore, AMissingKeyOrValueReadsAsTheDefaultOfEachType) {
    for (const Value& defaultValue : {Value(L"text"), Value(-5), Value(Bytes{1, 2})}) {
        EXPECT_EQ(read(L"Name", defaultValue), defaultValue);
        stage->setValue(KEY, L"Another", 1);
        EXPECT_EQ(read(L"Name", defaultValue), defaultValue);
    }
}

TEST_F(RegistryStore, ATextIsAskedForItsSizeAndThenRead) {
    stage->setValue(KEY, L"Name", L"abc");
    EXPECT_EQ(read(L"Name", L""), Value(L"abc"));
    const std::string query = "registry query Software\\Norvane\\Quillmark\\Name";
    EXPECT_THAT(calls.lines(), ElementsAre("registry open Software\\Norvane\\Quillmark", query, query,
                                           "registry close Software\\Norvane\\Quillmark"));
}

TEST_F(RegistryStore, AMissingValueIsAskedForOnceAndTheKeyIsClosed) {
    stage->setValue(KEY, L"Another", 1);
    EXPECT_EQ(read(L"Name", 3), Value(3));
    EXPECT_THAT(calls.lines(), ElementsAre("registry open Software\\Norvane\\Quillmark",
                                           "registry query Software\\Norvane\\Quillmark\\Name",
                                           "registry close Software\\Norvane\\Quillmark"));
}

TEST_F(RegistryStore, AMissingKeyIsOnlyAskedFor) {
    EXPECT_EQ(read(L"Name", 3), Value(3));
    EXPECT_THAT(calls.lines(), ElementsAre("registry open Software\\Norvane\\Quillmark"));
}

TEST_F(RegistryStore, EveryReadSeesTheRegistryAsItIsThen) {
    stage->setValue(KEY, L"Name", L"one");
    EXPECT_EQ(read(L"Name", L""), Value(L"one"));
    stage->setValue(KEY, L"Name", 2);
    EXPECT_EQ(read(L"Name", L""), Value(2));
}

TEST_F(RegistryStore, ATrailingBackslashNamesTheKeyItself) {
    stage->setValue(KEY, L"Name", L"abc");
    const std::wstring withBackslash = std::wstring(KEY) + L"\\";
    EXPECT_EQ(read(L"Name", L"", withBackslash), Value(L"abc"));
    write(L"Written", ValueType::integer, 5, withBackslash);
    EXPECT_EQ(stage->value(KEY, L"Written"), Value(5));
}

TEST_F(RegistryStore, NamesOfKeysAndValuesKnowNoCase) {
    stage->setValue(KEY, L"Name", L"abc");
    EXPECT_EQ(read(L"NAME", L"", L"software\\NORVANE\\quillmark"), Value(L"abc"));
}

TEST_F(RegistryStore, TextOfTheCodePageComesBackAndAllElseIsMarked) {
    write(L"Name", ValueType::text, L"M\xFCller \x20AC");
    EXPECT_EQ(read(L"Name", L""), Value(L"M\xFCller \x20AC"));
    write(L"Name", ValueType::text, L"\x416\x4E2Dx");
    EXPECT_EQ(read(L"Name", L""), Value(L"??x"));
}

// --- Writing ----------------------------------------------------------------------------------------------

TEST_F(RegistryStore, WritingCreatesTheWholePath) {
    const std::wstring deep = std::wstring(KEY) + L"\\Work\\Mail";
    write(L"Name", ValueType::text, L"abc", deep);
    EXPECT_EQ(stage->value(deep, L"Name"), Value(L"abc"));
    EXPECT_THAT(calls.lines(),
                ElementsAre("registry create Software\\Norvane\\Quillmark\\Work\\Mail",
                            "registry set Software\\Norvane\\Quillmark\\Work\\Mail\\Name = abc",
                            "registry close Software\\Norvane\\Quillmark\\Work\\Mail"));
}

TEST_F(RegistryStore, EachTypeComesBackAsItWasWritten) {
    write(L"Text", ValueType::text, L"abc");
    write(L"Number", ValueType::integer, -1);
    write(L"Bytes", ValueType::binary, Bytes{0, 0xFF});
    EXPECT_EQ(read(L"Text", 0), Value(L"abc"));
    EXPECT_EQ(read(L"Number", 0), Value(-1));
    EXPECT_EQ(read(L"Bytes", 0), Value(Bytes{0, 0xFF}));
}

TEST_F(RegistryStore, AnEmptyTextIsWrittenAsOneNul) {
    write(L"Name", ValueType::text, L"");
    EXPECT_EQ(read(L"Name", L"default"), Value(L""));
}

TEST_F(RegistryStore, ALongTextComesBackWhole) {
    const std::wstring text(1'000'000, L'x');
    write(L"Name", ValueType::text, text);
    EXPECT_EQ(read(L"Name", L""), Value(text));
}

TEST_F(RegistryStore, ATextIsConvertedWhereAnIntegerIsWritten) {
    write(L"Number", ValueType::integer, L" 3.5 ");
    EXPECT_EQ(stage->value(KEY, L"Number"), Value(4));
}

TEST_F(RegistryStore, AnIntegerIsWrittenAsItsDecimalTextWhereTextIs) {
    write(L"Name", ValueType::text, -12);
    EXPECT_EQ(stage->value(KEY, L"Name"), Value(L"-12"));
}

TEST_F(RegistryStore, AValueThatDoesNotConvertIsNotWritten) {
    write(L"Number", ValueType::integer, L"abc");
    write(L"Number", ValueType::integer, L"2147483648");
    write(L"Number", ValueType::integer, Bytes{1});
    write(L"Number", ValueType::text, Bytes{1});
    write(L"Number", ValueType::binary, L"abc");
    write(L"Number", ValueType::binary, Bytes{});
    EXPECT_EQ(stage->value(KEY, L"Number"), std::nullopt);
    EXPECT_TRUE(calls.linesWith("registry set").empty());
}

TEST_F(RegistryStore, AnotherTypeCodeWritesNothing) {
    for (const std::uint32_t code : {REG_NONE_TYPE, REG_EXPAND_SZ_TYPE, REG_MULTI_SZ_TYPE, QWORD_TYPE})
        write(L"Name", static_cast<ValueType>(code), L"abc");
    EXPECT_TRUE(calls.linesWith("registry set").empty());
    EXPECT_EQ(stage->value(KEY, L"Name"), std::nullopt);
}

TEST_F(RegistryStore, AWriteReplacesTypeAndContent) {
    stage->setRawValue(KEY, L"Name", REG_MULTI_SZ_TYPE, bytesOf(std::string("a\0b\0\0", 5)));
    write(L"Name", ValueType::integer, 1);
    EXPECT_EQ(stage->value(KEY, L"Name"), Value(1));
}

// --- Deleting ---------------------------------------------------------------------------------------------

TEST_F(RegistryStore, DeletingRemovesTheValueAndKeepsTheKey) {
    stage->setValue(KEY, L"Name", L"abc");
    stage->setValue(KEY, L"Another", 1);
    remove(L"Name");
    EXPECT_EQ(stage->value(KEY, L"Name"), std::nullopt);
    EXPECT_EQ(stage->value(KEY, L"Another"), Value(1));
}

TEST_F(RegistryStore, DeletingAMissingValueDoesNothing) {
    stage->setValue(KEY, L"Another", 1);
    remove(L"Name");
    EXPECT_EQ(stage->value(KEY, L"Another"), Value(1));
}

TEST_F(RegistryStore, DeletingFromAMissingKeyDoesNothingAndCreatesNoKey) {
    remove(L"Name");
    EXPECT_THAT(calls.lines(), ElementsAre("registry open Software\\Norvane\\Quillmark"));
    EXPECT_EQ(read(L"Name", 1), Value(1));
    EXPECT_EQ(calls.linesWith("registry query").size(), 0U) << "there is still no key to ask";
}

// --- Single calls that fail -------------------------------------------------------------------------------

TEST_F(RegistryStore, AReadOfWhichOneCallFailsYieldsTheDefaultButForTheClose) {
    stage->setValue(KEY, L"Text", L"abc");
    stage->setValue(KEY, L"Number", 5);
    stage->setValue(KEY, L"Bytes", Bytes{1, 2});
    constexpr std::size_t CLOSE = 3;  // open, two queries, close
    for (const wchar_t* name : {L"Text", L"Number", L"Bytes"}) {
        for (std::size_t failing = 0; failing <= CLOSE; ++failing) {
            calls.failCall(failing);
            const Value result = read(name, L"default");
            calls.forgetFaults();
            const Value expected = failing == CLOSE ? *stage->value(KEY, name) : Value(L"default");
            EXPECT_EQ(result, expected) << toUtf8(name) << ", call " << failing;
        }
    }
}

TEST_F(RegistryStore, AWriteOfWhichOneCallFailsDoesNotHappenButForTheClose) {
    constexpr std::size_t CLOSE = 2;  // create, set, close
    for (std::size_t failing = 0; failing <= CLOSE; ++failing) {
        stage->setValue(KEY, L"Name", L"old");
        calls.failCall(failing);
        write(L"Name", ValueType::text, L"new");
        calls.forgetFaults();
        EXPECT_EQ(stage->value(KEY, L"Name"), Value(failing == CLOSE ? L"new" : L"old"))
            << "call " << failing;
    }
}

TEST_F(RegistryStore, ADeleteOfWhichOneCallFailsDoesNotHappenButForTheClose) {
    constexpr std::size_t CLOSE = 2;  // open, delete, close
    for (std::size_t failing = 0; failing <= CLOSE; ++failing) {
        stage->setValue(KEY, L"Name", L"old");
        calls.failCall(failing);
        remove(L"Name");
        calls.forgetFaults();
        EXPECT_EQ(stage->value(KEY, L"Name").has_value(), failing != CLOSE) << "call " << failing;
    }
}

// --- Code pages with more than one byte to a character -----------------------------------------------------

/// Every character takes two bytes.
class DoubleByteCodec : public vexa::AnsiCodec {
public:
    [[nodiscard]] std::string toAnsi(const std::wstring& text) override {
        std::string bytes;
        for (const wchar_t character : text) bytes.append(2, static_cast<char>(character));
        return bytes;
    }
    [[nodiscard]] std::wstring fromAnsi(const std::string&) override { return {}; }
};

class FailingCodec : public vexa::AnsiCodec {
public:
    [[nodiscard]] std::string toAnsi(const std::wstring&) override { throw std::bad_alloc(); }
    [[nodiscard]] std::wstring fromAnsi(const std::string&) override { throw std::bad_alloc(); }
};

/// Notes what is set, and for what keys are opened.
class NotingRegistry : public vexa::RegistryApi {
public:
    Status openKey(Key hive, const std::string&, std::uint32_t access, Key& key) override {
        hives.push_back(hive);
        accesses.push_back(access);
        return ++opened, key = 1, 0;
    }
    Status createKey(Key hive, const std::string& path, std::uint32_t access, Key& key) override {
        return openKey(hive, path, access, key);
    }
    Status queryValue(Key, const std::string&, std::uint32_t&, std::uint8_t*, std::uint32_t&) override {
        return 2;
    }
    Status setValue(Key, const std::string&, std::uint32_t, const std::uint8_t* data,
                    std::uint32_t size) override {
        set.emplace_back(data, data + size);
        return 0;
    }
    Status deleteValue(Key, const std::string&) override { return 0; }
    Status closeKey(Key) override { return --opened, 0; }

    int opened = 0;
    std::vector<Key> hives;
    std::vector<std::uint32_t> accesses;
    std::vector<Bytes> set;
};

TEST_F(RegistryStore, KeysAreOpenedForNoMoreThanIsDone) {
    NotingRegistry api;
    vexa::modRegistry store(api, application.platform.ansi, application.platform.conversions);
    static_cast<void>(store.RegistryRead(HIVE, KEY, L"Name", 5));
    store.RegistryWrite(HIVE, KEY, L"Name", ValueType::integer, 5);
    store.RegistryDelete(HIVE, KEY, L"Name");
    EXPECT_THAT(api.accesses, ElementsAre(0x20019U, 0x2001FU, 0x20006U));
    EXPECT_THAT(api.hives, testing::Each(0x80000001U));
    EXPECT_EQ(api.opened, 0);
}

TEST_F(RegistryStore, TheLengthOfATextCountsCharactersEvenWhereTheyTakeMoreBytes) {
    NotingRegistry api;
    DoubleByteCodec codec;
    vexa::modRegistry store(api, codec, application.platform.conversions);
    store.RegistryWrite(HIVE, KEY, L"Name", ValueType::text, L"abc");
    EXPECT_THAT(api.set, ElementsAre(bytesOf("aabb"))) << "three characters and the NUL: four";
    EXPECT_EQ(api.opened, 0);
}

TEST_F(RegistryStore, NothingIsThrownWhereMemoryRunsOut) {
    NotingRegistry api;
    FailingCodec codec;
    vexa::modRegistry store(api, codec, application.platform.conversions);
    EXPECT_EQ(store.RegistryRead(HIVE, KEY, L"Name", 5), Value(5));
    store.RegistryWrite(HIVE, KEY, L"Name", ValueType::text, L"abc");
    store.RegistryDelete(HIVE, KEY, L"Name");
    EXPECT_TRUE(api.set.empty());
    EXPECT_EQ(api.opened, 0);
}

}  // namespace
}  // namespace tests
