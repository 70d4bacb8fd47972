// The settings catalogue: the table itself, and how values come into the record and back.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/stage/form_test.h"
#include "tests/support/known_settings.h"
#include "tests/support/text.h"

namespace tests {
namespace {

using vexa::Setting;
using vexa::SettingKey;
using vexa::Settings;
using vexa::Value;

constexpr const wchar_t* ROOT_KEY = L"Software\\Norvane\\Quillmark";

const Setting& setting(const std::wstring& name) {
    const auto catalogue = vexa::settingsCatalogue();
    const auto found =
        std::ranges::find(catalogue, name, [](const Setting& one) { return std::wstring(one.name); });
    if (found == catalogue.end()) throw std::logic_error("no setting " + toUtf8(name));
    return *found;
}

bool isText(const Setting& one) { return std::holds_alternative<std::wstring Settings::*>(one.member); }
bool isFlag(const Setting& one) { return std::holds_alternative<bool Settings::*>(one.member); }

/// A value of the setting's type that differs from its default.
Value anotherValue(const Setting& one) {
    if (isText(one)) return L"another";
    const auto number = std::get<std::int32_t>(one.defaultValue);
    return isFlag(one) ? (number == 0 ? 1 : 0) : number + 1;
}

// --- The table --------------------------------------------------------------------------------------------

TEST(SettingsCatalogue, ReadsTheKnownSettingsInTheirOrderWithTheirDefaultsAndWritesThemInTheirs) {
    const auto catalogue = vexa::settingsCatalogue();
    ASSERT_EQ(catalogue.size(), knownSettings().size());
    for (std::size_t index = 0; index < catalogue.size(); ++index) {
        const KnownSetting& known = knownSettings()[index];
        EXPECT_EQ(toUtf8(catalogue[index].name), known.name) << index;
        EXPECT_EQ(vexa::settingValue(Settings(), catalogue[index]), known.standard) << known.name;
        EXPECT_EQ(catalogue[index].applyOrder, known.written) << known.name;
        EXPECT_EQ(catalogue[index].key == SettingKey::root,
                  known.name == std::string(SETTING_OF_THE_ROOT_KEY))
            << known.name;
    }
    std::vector<std::string> written;
    for (const Setting* one : vexa::applyOrder()) written.push_back(toUtf8(one->name));
    EXPECT_EQ(written, namesAsWritten());
}

TEST(SettingsCatalogue, GivesEachValueADefaultOfItsTypeAndAMeaning) {
    for (const Setting& one : vexa::settingsCatalogue()) {
        EXPECT_EQ(std::holds_alternative<std::wstring>(one.defaultValue), isText(one)) << toUtf8(one.name);
        EXPECT_EQ(std::holds_alternative<std::int32_t>(one.defaultValue), !isText(one)) << toUtf8(one.name);
        EXPECT_FALSE(std::wstring(one.meaning).empty()) << toUtf8(one.name);
    }
}

TEST(SettingsCatalogue, GivesFlagsADefaultOfZeroOneOrTheAutomationTrue) {
    for (const Setting& one : vexa::settingsCatalogue()) {
        if (!isFlag(one)) continue;
        EXPECT_THAT(std::get<std::int32_t>(one.defaultValue), testing::AnyOf(0, 1, -1)) << toUtf8(one.name);
    }
    EXPECT_EQ(setting(L"AutoFindUnread").defaultValue, Value(-1));
    EXPECT_EQ(setting(L"DisplayHotSpots").defaultValue, Value(-1));
}

TEST(SettingsCatalogue, GivesBoundsToTheNumbersThatTheUserTypes) {
    const auto bounds = [](std::int32_t Settings::*number) {
        const vexa::Bounds found = vexa::boundsOf(number);
        return std::pair(found.minimum, found.maximum);
    };
    EXPECT_EQ(bounds(&Settings::AutoFindDelay), std::pair(0, 60));
    EXPECT_EQ(bounds(&Settings::MaxEntries), std::pair(10, 10000));
    EXPECT_EQ(bounds(&Settings::MinRel), std::pair(0, 100));
    EXPECT_EQ(bounds(&Settings::AttachmentsMaxSize), std::pair(1, 65000));
    EXPECT_THROW(bounds(&Settings::FindShortcut), std::logic_error);
    for (const Setting& one : vexa::settingsCatalogue()) {
        if (!one.bounds) continue;
        const auto number = std::get<std::int32_t>(one.defaultValue);
        EXPECT_TRUE(one.bounds->minimum <= number && number <= one.bounds->maximum) << toUtf8(one.name);
    }
}

TEST(SettingsCatalogue, GivesEachValueAFieldOfItsOwn) {
    for (const Setting& one : vexa::settingsCatalogue()) {
        Settings changed;
        vexa::storeSetting(changed, one, anotherValue(one));
        EXPECT_NE(changed, Settings()) << toUtf8(one.name);
        const auto differs = [&](const Setting& other) {
            return vexa::settingValue(changed, other) != vexa::settingValue(Settings(), other);
        };
        EXPECT_EQ(std::ranges::count_if(vexa::settingsCatalogue(), differs), 1) << toUtf8(one.name);
    }
}

TEST(SettingsCatalogue, CoversTheWholeRecord) {
    Settings changed;
    for (const Setting& one : vexa::settingsCatalogue()) vexa::storeSetting(changed, one, anotherValue(one));
    Settings back = changed;
    for (const Setting& one : vexa::settingsCatalogue()) vexa::storeSetting(back, one, one.defaultValue);
    EXPECT_EQ(back, Settings()) << "a field that no row names would keep its change";
}

// --- Loading and storing ----------------------------------------------------------------------------------

class SettingsRecord : public FormTest {
protected:
    void load(const std::wstring& name) { application.load(setting(name)); }
    void loadAll() {
        application.loadProfileKey();
        for (const Setting& one : vexa::settingsCatalogue()) application.load(one);
    }
    void storeAll() {
        for (const Setting* one : vexa::applyOrder()) application.store(*one);
    }
    Settings& settings = application.settings;
};

TEST_F(SettingsRecord, StartsWithTheDefaultsWhereTheRegistryIsEmpty) {
    loadAll();
    EXPECT_EQ(settings, Settings());
    EXPECT_EQ(application.ProfileKey, std::wstring(ROOT_KEY) + L"\\");
}

TEST_F(SettingsRecord, TheFirstStoreCreatesTheProfileKeyWithEveryWrittenValue) {
    stage->setValue(ROOT_KEY, L"CurrentProfile", L"Work");
    loadAll();
    storeAll();
    for (const Setting& one : vexa::settingsCatalogue()) {
        const std::wstring key = one.key == SettingKey::root ? ROOT_KEY : std::wstring(ROOT_KEY) + L"\\Work";
        const auto stored = stage->value(key, one.name);
        const auto expected =
            one.applyOrder == 0 ? std::optional<Value>() : vexa::settingValue(Settings(), one);
        EXPECT_EQ(stored, expected) << toUtf8(one.name);
    }
    EXPECT_EQ(stage->value(std::wstring(ROOT_KEY) + L"\\Work", L"CurrentProfile"), std::nullopt);
    EXPECT_EQ(stage->value(std::wstring(ROOT_KEY) + L"\\Work", L"LogPath"), std::nullopt);
}

TEST_F(SettingsRecord, AFlagStoredAsFiveIsTrueAndIsStoredAsOne) {
    loadAll();
    stage->setValue(ROOT_KEY, L"AutoInfo", 5);
    load(L"AutoInfo");
    EXPECT_TRUE(settings.AutoInfo);
    application.store(setting(L"AutoInfo"));
    EXPECT_EQ(stage->value(ROOT_KEY, L"AutoInfo"), Value(1));
}

TEST_F(SettingsRecord, EveryStoredFlagButZeroIsTrue) {
    loadAll();
    const std::pair<Value, bool> cases[] = {{0, false},     {1, true},     {-1, true},    {2147483647, true},
                                            {L"0", false},  {L"1", true},  {L"-1", true}, {L"0.5", false},
                                            {L"0.6", true}, {L" 7 ", true}};
    for (const auto& [stored, expected] : cases) {
        stage->setValue(ROOT_KEY, L"AutoFindAll", stored);
        load(L"AutoFindAll");
        EXPECT_EQ(settings.AutoFindAll, expected);
    }
}

TEST_F(SettingsRecord, TheLoggingSwitchStaysUnderTheRootKeyWhenAProfileIsSet) {
    stage->setValue(ROOT_KEY, L"CurrentProfile", L"Work");
    stage->setValue(ROOT_KEY, L"LoggingInformation", 0);
    stage->setValue(ROOT_KEY, L"MaxEntries", 1);
    stage->setValue(std::wstring(ROOT_KEY) + L"\\Work", L"LoggingInformation", 1);
    stage->setValue(std::wstring(ROOT_KEY) + L"\\Work", L"MaxEntries", 33);
    loadAll();
    EXPECT_FALSE(settings.LoggingInformation);
    EXPECT_EQ(settings.MaxEntries, 33);
}

TEST_F(SettingsRecord, ATextThatConvertsIsTakenAsANumber) {
    loadAll();
    stage->setValue(ROOT_KEY, L"MaxEntries", L" 3.5 ");
    load(L"MaxEntries");
    EXPECT_EQ(settings.MaxEntries, 4);
}

TEST_F(SettingsRecord, ADecimalCommaCountsWhereTheLocaleHasIt) {
    stage->useDecimalComma();
    loadAll();
    stage->setValue(ROOT_KEY, L"MaxEntries", L"3,5");
    load(L"MaxEntries");
    EXPECT_EQ(settings.MaxEntries, 4);
}

TEST_F(SettingsRecord, AStoredValueThatDoesNotConvertLeavesTheRecordAsItWas) {
    loadAll();
    settings.MaxEntries = 77;
    for (const Value& broken :
         {Value(L"many"), Value(L""), Value(L"2147483648"), Value(vexa::Bytes{1, 2, 3, 4})}) {
        stage->setValue(ROOT_KEY, L"MaxEntries", broken);
        load(L"MaxEntries");
        EXPECT_EQ(settings.MaxEntries, 77);
    }
    settings.DefaultProject = L"Mail";
    stage->setValue(ROOT_KEY, L"DefaultProject", vexa::Bytes{1});
    load(L"DefaultProject");
    EXPECT_EQ(settings.DefaultProject, L"Mail");
}

TEST_F(SettingsRecord, ANumberStoredForATextIsItsDecimalText) {
    loadAll();
    stage->setValue(ROOT_KEY, L"DefaultProject", 7);
    load(L"DefaultProject");
    EXPECT_EQ(settings.DefaultProject, L"7");
}

TEST_F(SettingsRecord, AForeignTypeReadsAsTheDefault) {
    loadAll();
    settings.MaxEntries = 77;
    constexpr std::uint32_t REG_QWORD_TYPE = 11;
    stage->setRawValue(ROOT_KEY, L"MaxEntries", REG_QWORD_TYPE, {1, 0, 0, 0, 0, 0, 0, 0});
    load(L"MaxEntries");
    EXPECT_EQ(settings.MaxEntries, 20);
}

TEST_F(SettingsRecord, AColourKeepsItsTopByte) {
    loadAll();
    stage->setValue(ROOT_KEY, L"Penalty2", -1);
    load(L"Penalty2");
    EXPECT_EQ(settings.Penalty2, -1);
    application.store(setting(L"Penalty2"));
    EXPECT_EQ(stage->value(ROOT_KEY, L"Penalty2"), Value(-1));
}

TEST_F(SettingsRecord, TheProfileKeyEndsInTheProfilesNameANumbersTextOrNothing) {
    const std::pair<Value, const wchar_t*> cases[] = {{L"Work", L"Work"}, {7, L"7"}, {vexa::Bytes{1}, L""}};
    for (const auto& [stored, name] : cases) {
        stage->setValue(ROOT_KEY, L"CurrentProfile", stored);
        application.loadProfileKey();
        EXPECT_EQ(application.ProfileKey, std::wstring(ROOT_KEY) + L"\\" + name)
            << "\"" << toUtf8(name) << "\"";
    }
}

TEST_F(SettingsRecord, TheLogsFolderIsBelowTheInstallationUnlessTheProfileNamesAnother) {
    application.loadProfileKey();
    application.loadLogPath();
    EXPECT_EQ(application.log.LogPath, stage->folder() + L"Log\\");
    stage->setValue(ROOT_KEY, L"LogPath", L"C:\\Elsewhere\\");
    application.loadLogPath();
    EXPECT_EQ(application.log.LogPath, L"C:\\Elsewhere\\");
}

}  // namespace
}  // namespace tests
