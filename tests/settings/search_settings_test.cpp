// The search settings dialog.
#include "tests/settings/settings_test_base.h"
#include "tests/stage/dialog_table.h"

namespace tests {
namespace {

class SearchSettings : public SettingsTest {
protected:
    SearchSettings() {
        setKnowledgebases({L"Mail", L"Work"});
        setText(L"DefaultProject", L"Mail");
        calls.clear();
    }
    void open(FunctionRef<void(frmSettings&)> script) { openSearch(script); }

    static ui::OptionButton& unread(frmSettings& form) { return form.optAutoInfo[0]; }
    static ui::OptionButton& all(frmSettings& form) { return form.optAutoInfo[1]; }
};

// --- Loading ----------------------------------------------------------------------------------------------

TEST_F(SearchSettings, TheControlsShowTheRecord) {
    settings.MaxEntries = 55;
    settings.MinRel = 66;
    settings.AutoFindDelay = 7;
    settings.AutoInfo = true;
    settings.AutoFindUnread = false;
    settings.AutoFindAll = true;
    settings.FindShortcut = 1;
    settings.LoggingInformation = false;
    open([&](frmSettings& form) {
        EXPECT_EQ(form.txtEntryCount.text(), L"55");
        EXPECT_EQ(form.txtMinRel.text(), L"66");
        EXPECT_EQ(form.txtDelay.text(), L"7");
        EXPECT_TRUE(form.chkAutoInfo.checked());
        EXPECT_FALSE(unread(form).selected());
        EXPECT_TRUE(all(form).selected());
        EXPECT_EQ(form.cboSearchShortcut.selectedIndex(), 1);
        EXPECT_FALSE(form.chkLoggingInformation.checked());
        EXPECT_FALSE(form.cmdSendLog.enabled());
        EXPECT_EQ(form.cboDefaultKB.selectedIndex(), 1);
    });
}

TEST_F(SearchSettings, TheShortcutListHoldsTheTwoShortcuts) {
    open([&](frmSettings& form) {
        EXPECT_THAT(items(form.cboSearchShortcut), ElementsAre(L"Ctrl+S", L"Shift+F3"));
        EXPECT_EQ(form.cboSearchShortcut.selectedIndex(), 0);
    });
}

TEST_F(SearchSettings, NumberFieldsTellScreenReadersRangeAndUnit) {
    open([&](frmSettings& form) {
        EXPECT_EQ(form.txtDelay.description(), L"0 - 60 (sec)");
        EXPECT_EQ(form.txtEntryCount.description(), L"10 to 10000");
        EXPECT_EQ(form.txtMinRel.description(), L"0 - 100(%)");
    });
}

/// What is stored of the knowledgebases; nothing where it is missing.
struct Knowledgebases {
    const char* name;
    std::vector<std::optional<vexa::Value>> projects;
    std::optional<vexa::Value> standard;  ///< the stored name of the default one
    Strings shown;                        ///< behind "<None>"
    int selected;
    const wchar_t* taken;  ///< by OK
    bool changed = false;  ///< which is another name than the stored one
};

const std::wstring LONG_NAME(3000, L'x');

const Knowledgebases KNOWLEDGEBASES[] = {
    {"None", {}, L"Mail", {}, 0, L"", true},
    {"StoredOrder", {L"Zoo", L"Archive", L"Mail"}, L"Mail", {L"Zoo", L"Archive", L"Mail"}, 3, L"Mail"},
    {"EmptyNames", {L"", L"Mail", L"", L"Work", L""}, L"Mail", {L"Mail", L"Work"}, 1, L"Mail"},
    {"MissingNames", {L"Mail", {}, {}, L"Late"}, L"Mail", {L"Mail", L"Late"}, 1, L"Mail"},
    // The first that is equal.
    {"Exactly",
     {L"mail", L"Mail ", L"Mail", L"Mail"},
     L"Mail",
     {L"mail", L"Mail ", L"Mail", L"Mail"},
     3,
     L"Mail"},
    {"OfNoKnowledgebase", {L"Mail", L"Work"}, L"Gone", {L"Mail", L"Work"}, 0, L"", true},
    {"NoneStaysSelected", {L"Mail", L"Work"}, L"", {L"Mail", L"Work"}, 0, L"", true},
    {"Missing", {L"Mail", L"Work"}, {}, {L"Mail", L"Work"}, 0, L"", true},
    {"OfDigits", {L"Mail", L"17"}, 17, {L"Mail", L"17"}, 2, L"17"},
    // The record's own stays.
    {"NoText", {L"Mail", L"Work"}, vexa::Bytes{1, 2, 3}, {L"Mail", L"Work"}, 2, L"Work"},
    {"OtherTypes", {vexa::Bytes{1, 2, 3}, 17, L"Last"}, L"Last", {L"17", L"Last"}, 2, L"Last"},
    {"CalledLikeNone", {L"<None>"}, L"<None>", {L"<None>"}, 0, L""},
    {"ControlCharactersAndLongOnes",
     {L"a\tb\x01\x7f", LONG_NAME, L"&Mail", L"Gr\u00fc\u00dfe"},
     LONG_NAME,
     {L"a\tb\x01\x7f", LONG_NAME, L"&Mail", L"Gr\u00fc\u00dfe"},
     2,
     LONG_NAME.c_str()},
};

class SearchKnowledgebases : public SettingsTest, public testing::WithParamInterface<Knowledgebases> {
protected:
    void store(const std::wstring& name, const std::optional<vexa::Value>& value) {
        if (value) stage->setValue(SETTINGS_KEY, name, *value);
    }
};

TEST_P(SearchKnowledgebases, AreListedBehindNoneAndTheStoredOneIsSelectedAndTaken) {
    const Knowledgebases& row = GetParam();
    setInteger(L"ProjectCount", static_cast<std::int32_t>(row.projects.size()));
    for (std::size_t index = 0; index < row.projects.size(); ++index)
        store(L"Project" + std::to_wstring(index + 1), row.projects[index]);
    store(L"DefaultProject", row.standard);
    settings.DefaultProject = L"Work";
    Strings shown = row.shown;
    shown.insert(shown.begin(), L"<None>");
    openSearch([&](frmSettings& form) {
        EXPECT_EQ(items(form.cboDefaultKB), shown);
        EXPECT_EQ(form.cboDefaultKB.selectedIndex(), row.selected);
        const auto* text = row.standard ? std::get_if<std::wstring>(&*row.standard) : nullptr;
        EXPECT_EQ(settings.DefaultProject, text != nullptr ? *text : row.taken) << "before OK";
        user.click(form.cmdOk);
    });
    EXPECT_EQ(settings.DefaultProject, row.taken);
    EXPECT_EQ(application.flags, (ChangeFlags{row.changed, row.changed, false}));
}

INSTANTIATE_TEST_SUITE_P(Stored, SearchKnowledgebases, testing::ValuesIn(KNOWLEDGEBASES), namedRow);

TEST_F(SearchSettings, ItStartsFromTheStoredNameNotFromAnUnappliedEdit) {
    settings.DefaultProject = L"Work";
    open([&](frmSettings& form) {
        EXPECT_EQ(settings.DefaultProject, L"Mail");
        EXPECT_EQ(form.cboDefaultKB.selectedIndex(), 1);
    });
    EXPECT_EQ(settings.DefaultProject, L"Mail") << "Cancel does not bring the edit back";
}

TEST_F(SearchSettings, LoadingClearsTheTwoFlagsThatItAnswersFor) {
    application.flags = {true, true, true};
    open([&](frmSettings& form) {
        EXPECT_EQ(application.flags, (ChangeFlags{true, false, false}));
        user.click(form.cmdOk);
    });
    EXPECT_EQ(application.flags, (ChangeFlags{true, false, false}));
}

TEST_F(SearchSettings, CancelBringsTheFlagsOfAnEarlierOkBack) {
    for (const ChangeFlags before :
         {ChangeFlags{true, true, true}, {true, false, true}, {true, true, false}}) {
        application.flags = before;
        open([&](frmSettings& form) { user.click(form.cmdCancel); });
        EXPECT_EQ(application.flags, before);
        open([&](frmSettings& form) { user.closeWindow(form.window()); });
        EXPECT_EQ(application.flags, before);
    }
}

TEST_F(SearchSettings, WithNeitherScopeStoredUnreadIsSelected) {
    settings.AutoFindUnread = settings.AutoFindAll = false;
    open([&](frmSettings& form) {
        EXPECT_TRUE(unread(form).selected());
        EXPECT_FALSE(all(form).selected());
    });
}

TEST_F(SearchSettings, ValuesAreReadInTheirOrder) {
    open([&](frmSettings& form) { user.click(form.cmdCancel); });
    std::vector<std::string> queried;
    for (const std::string& line : calls.linesWith("registry query")) {
        const std::string name = line.substr(line.rfind('\\') + 1);
        if (queried.empty() || queried.back() != name) queried.push_back(name);
    }
    EXPECT_THAT(queried, ElementsAre("DefaultProject", "ProjectCount", "Project1", "Project2"));
}

TEST_F(SearchSettings, TheRegistryIsNeverWritten) {
    open([&](frmSettings& form) {
        user.click(form.chkAutoInfo);
        user.click(form.cmdOk);
    });
    EXPECT_THAT(calls.linesWith("registry create"), IsEmpty());
    EXPECT_THAT(calls.linesWith("registry set"), IsEmpty());
    EXPECT_THAT(calls.linesWith("registry delete"), IsEmpty());
}

// --- Enabling ---------------------------------------------------------------------------------------------

TEST_F(SearchSettings, TheAutomaticSearchAndTheShortcutExcludeEachOther) {
    open([&](frmSettings& form) {
        const auto states = [&] {
            return std::vector<bool>{unread(form).enabled(),          all(form).enabled(),
                                     form.lblDelay.enabled(),         form.txtDelay.enabled(),
                                     form.updDelay.enabled(),         form.lblSearchShortcut.enabled(),
                                     form.cboSearchShortcut.enabled()};
        };
        EXPECT_THAT(states(), ElementsAre(false, false, false, false, false, true, true));
        EXPECT_TRUE(form.lblDelayInfo.enabled());
        user.click(form.chkAutoInfo);
        EXPECT_THAT(states(), ElementsAre(true, true, true, true, true, false, false));
        user.click(form.chkAutoInfo);
        EXPECT_THAT(states(), ElementsAre(false, false, false, false, false, true, true));
        EXPECT_TRUE(form.lblDelayInfo.enabled());
    });
}

TEST_F(SearchSettings, AStoredAutomaticSearchIsEnabledFromTheStart) {
    settings.AutoInfo = true;
    open([&](frmSettings& form) {
        EXPECT_TRUE(form.txtDelay.enabled());
        EXPECT_FALSE(form.cboSearchShortcut.enabled());
    });
}

TEST_F(SearchSettings, UntickingTheLoggingDisablesSendReportAtOnce) {
    int opened = 0;
    openReport = [&](ui::Window&) { ++opened; };
    open([&](frmSettings& form) {
        EXPECT_TRUE(form.cmdSendLog.enabled());
        user.click(form.chkLoggingInformation);
        EXPECT_FALSE(form.cmdSendLog.enabled());
        user.click(form.cmdSendLog);
        pressAlt(form, 'S');
        EXPECT_EQ(opened, 0);
        user.click(form.chkLoggingInformation);
        EXPECT_TRUE(form.cmdSendLog.enabled());
    });
}

// --- Storing ----------------------------------------------------------------------------------------------

TEST_F(SearchSettings, AShortcutOutsideTheListIsNotSelectedAndOkStoresNoSelection) {
    for (const std::int32_t stored : {7, 2, -1, -7, 2147483647, -2147483647 - 1}) {
        settings = Settings();
        settings.FindShortcut = stored;
        application.flags = {};
        open([&](frmSettings& form) {
            EXPECT_EQ(form.cboSearchShortcut.selectedIndex(), -1) << stored;
            user.click(form.cmdOk);
        });
        EXPECT_EQ(settings.FindShortcut, -1) << stored;
        EXPECT_EQ(application.flags.shortcutChanged, stored != -1) << stored;
        EXPECT_EQ(application.flags.dialogChanged, stored != -1) << stored;
    }
}

TEST_F(SearchSettings, AnEntryPickedInsteadOfAnUnknownShortcutIsStored) {
    settings.FindShortcut = 7;
    open([&](frmSettings& form) {
        user.choose(form.cboSearchShortcut, 1);
        user.click(form.cmdOk);
    });
    EXPECT_EQ(settings.FindShortcut, 1);
    EXPECT_TRUE(application.flags.shortcutChanged);
}

// --- Report -----------------------------------------------------------------------------------------------

TEST_F(SearchSettings, SendReportOpensTheReportOverTheDialog) {
    int opened = 0;
    ui::Window* reportOwner = nullptr;
    openReport = [&](ui::Window& owner) {
        ++opened;
        reportOwner = &owner;
    };
    open([&](frmSettings& form) {
        user.click(form.cmdSendLog);
        EXPECT_EQ(opened, 1);
        EXPECT_EQ(reportOwner, &form.window());
    });
}

TEST_F(SearchSettings, AReportThatCannotBeOpenedIsLoggedAndNothingIsShown) {
    openReport = [](ui::Window&) { throw vexa::Error(L"No window"); };
    open([&](frmSettings& form) {
        user.click(form.cmdSendLog);
        EXPECT_TRUE(form.window().isOpen());
    });
    const auto log = splitLines(stage->readFile(application.log.LogPath + L"VexaPPE.log").value_or(""));
    ASSERT_FALSE(log.empty());
    EXPECT_EQ(log.back().substr(log.back().find('\t') + 1), "frmSettings, Error SendLog: No window");
    EXPECT_THAT(stage->messages(), IsEmpty());
}

// --- Keyboard ---------------------------------------------------------------------------------------------

TEST_F(SearchSettings, EnterReachesOkAndEscAndTheCloseBoxCancel) {
    expectEndings<frmSettings>(
        &SettingsScene::openSearch,
        [](frmSettings& form) -> ui::CheckBox& { return form.chkLoggingInformation; },
        &Settings::LoggingInformation);
}

TEST_F(SearchSettings, TabReachesEachEnabledControlInOrder) {
    settings.AutoInfo = true;
    open([&](frmSettings& form) {
        expectTabOrder(form, {&form.chkAutoInfo, &unread(form), &form.txtDelay, &form.txtEntryCount,
                              &form.txtMinRel, &form.cboDefaultKB, &form.chkLoggingInformation,
                              &form.cmdSendLog, &form.cmdOk, &form.cmdCancel, &form.chkAutoInfo});
    });
}

TEST_F(SearchSettings, AccessKeysReachTheControlsOfTheirLabels) {
    settings.AutoInfo = true;
    open([&](frmSettings& form) {
        const auto alt = [&](int letter) { pressAlt(form, letter); };
        alt('L');
        EXPECT_TRUE(all(form).selected());
        alt('D');
        EXPECT_TRUE(unread(form).selected());
        alt('Y');
        EXPECT_TRUE(form.txtDelay.hasFocus());
        alt('X');
        EXPECT_TRUE(form.txtEntryCount.hasFocus());
        alt('M');
        EXPECT_TRUE(form.txtMinRel.hasFocus());
        alt('K');
        EXPECT_TRUE(form.cboDefaultKB.hasFocus());
        alt('P');
        EXPECT_FALSE(form.chkLoggingInformation.checked());
        alt('O');
        EXPECT_FALSE(form.chkAutoInfo.checked());
        alt('C');
        EXPECT_TRUE(form.cboSearchShortcut.hasFocus());
    });
}

// --- Every setting: stored before x what the user does x OK or Cancel -------------------------------------

// `DefaultProject` is "Mail" before.
std::vector<Before> searchesBefore() {
    const auto scopes = [](bool automatic, bool unread, bool all) {
        return [=](Settings& settings) {
            settings.AutoInfo = automatic;
            settings.AutoFindUnread = unread;
            settings.AutoFindAll = all;
        };
    };
    return {
        {"Defaults", [](Settings&) {}},
        {"AutomaticUnread", scopes(true, true, false)},
        {"AutomaticAll", scopes(true, false, true)},
        {"AutomaticNeither", scopes(true, false, false)},
        {"AutomaticBoth", scopes(true, true, true)},
        {"ManualAll", scopes(false, false, true)},
        {"ManualNeither", scopes(false, false, false)},
        {"OtherNumbers",
         [](Settings& settings) {
             settings.MaxEntries = 10000;
             settings.MinRel = 0;
             settings.AutoFindDelay = 60;
         }},
        {"OtherShortcut", [](Settings& settings) { settings.FindShortcut = 1; }},
        {"NoShortcut", [](Settings& settings) { settings.FindShortcut = -1; }},
        {"NoLogging", [](Settings& settings) { settings.LoggingInformation = false; }},
    };
}

void setAutomatic(User& user, frmSettings& form, bool automatic) {
    if (form.chkAutoInfo.checked() != automatic) user.click(form.chkAutoInfo);
}

std::vector<Deed<frmSettings>> searchDeeds() {
    return {
        {"Nothing", [](User&, frmSettings&) {}, [](Settings&) {}},
        {"AutoInfo", [](User& user, frmSettings& form) { user.click(form.chkAutoInfo); },
         [](Settings& s) { s.AutoInfo = !s.AutoInfo; }},
        {"AutoInfoTwice",
         [](User& user, frmSettings& form) {
             user.click(form.chkAutoInfo);
             user.click(form.chkAutoInfo);
         },
         [](Settings&) {}},
        {"All",
         [](User& user, frmSettings& form) {
             setAutomatic(user, form, true);
             user.click(form.optAutoInfo[1]);
         },
         [](Settings& s) {
             s.AutoInfo = s.AutoFindAll = true;
             s.AutoFindUnread = false;
         }},
        {"Unread",
         [](User& user, frmSettings& form) {
             setAutomatic(user, form, true);
             user.click(form.optAutoInfo[0]);
         },
         [](Settings& s) {
             s.AutoInfo = s.AutoFindUnread = true;
             s.AutoFindAll = false;
         }},
        {"Delay",
         [](User& user, frmSettings& form) {
             setAutomatic(user, form, true);
             typeOver(user, form.txtDelay, L"33");
         },
         [](Settings& s) {
             s.AutoInfo = true;
             s.AutoFindDelay = 33;
         }},
        {"Shortcut",
         [](User& user, frmSettings& form) {
             setAutomatic(user, form, false);
             user.choose(form.cboSearchShortcut, 1);
         },
         [](Settings& s) {
             s.AutoInfo = false;
             s.FindShortcut = 1;
         }},
        {"MaxEntries", [](User& user, frmSettings& form) { typeOver(user, form.txtEntryCount, L"77"); },
         [](Settings& s) { s.MaxEntries = 77; }},
        {"MinRel", [](User& user, frmSettings& form) { typeOver(user, form.txtMinRel, L"88"); },
         [](Settings& s) { s.MinRel = 88; }},
        {"Logging", [](User& user, frmSettings& form) { user.click(form.chkLoggingInformation); },
         [](Settings& s) { s.LoggingInformation = !s.LoggingInformation; }},
        {"OtherKnowledgebase", [](User& user, frmSettings& form) { user.choose(form.cboDefaultKB, 2); },
         [](Settings& s) { s.DefaultProject = L"Work"; }},
        {"NoKnowledgebase", [](User& user, frmSettings& form) { user.choose(form.cboDefaultKB, 0); },
         [](Settings& s) { s.DefaultProject = L""; }},
        {"SameKnowledgebase", [](User& user, frmSettings& form) { user.choose(form.cboDefaultKB, 1); },
         [](Settings&) {}},
    };
}

/// What OK makes of the two scopes, whatever the user did: the record's rule for a dialog that shows one of
/// the two always.
void settleScopes(Settings& settings, const Settings& shown) {
    const bool allShown = shown.AutoFindAll;
    settings.AutoFindAll = settings.AutoInfo && allShown;
    settings.AutoFindUnread = settings.AutoInfo && !allShown;
}

class SearchSettingsTable : public SearchSettings,
                            public testing::WithParamInterface<DialogRow<frmSettings>> {};

TEST_P(SearchSettingsTable, ForgetsOnCancelAndStoresOnOk) {
    const auto& [before, deed] = GetParam();
    before.prepare(settings);
    settings.DefaultProject = L"Mail";
    const Settings old = settings;
    open(playRow(user, deed, false));
    EXPECT_EQ(settings, old);
    EXPECT_EQ(application.flags, ChangeFlags());

    Settings expected = old;
    deed.result(expected);
    const Settings shown = expected;
    settleScopes(expected, shown);
    // The options as shown, compared with the record as it was.
    const bool scopesDiffer =
        shown.AutoFindAll != old.AutoFindAll || !shown.AutoFindAll != old.AutoFindUnread;
    Settings rest = expected;
    rest.AutoFindAll = old.AutoFindAll;
    rest.AutoFindUnread = old.AutoFindUnread;
    open(playRow(user, deed, true));
    EXPECT_EQ(settings, expected);
    EXPECT_EQ(application.flags,
              (ChangeFlags{scopesDiffer || rest != old, expected.DefaultProject != old.DefaultProject,
                           expected.FindShortcut != old.FindShortcut}));
    EXPECT_EQ(storedText(L"DefaultProject"), L"Mail") << "the registry waits for Apply";
}

INSTANTIATE_TEST_SUITE_P(All, SearchSettingsTable, everyRow(searchesBefore(), searchDeeds()),
                         rowName<frmSettings>);

// --- Bad input --------------------------------------------------------------------------------------------

TEST_F(SearchSettings, WhereNoKnowledgebaseIsSelectedOkStoresNone) {
    open([&](frmSettings& form) {
        form.cboDefaultKB.select(-1);
        user.click(form.cmdOk);
    });
    EXPECT_EQ(settings.DefaultProject, L"");
    EXPECT_TRUE(application.flags.defaultKnowledgebaseChanged);
}

TEST_F(SearchSettings, ABrokenCountOfKnowledgebasesIsNone) {
    for (const vexa::Value& count : std::initializer_list<vexa::Value>{-1, -2147483647 - 1, L"many"}) {
        stage->setValue(SETTINGS_KEY, L"ProjectCount", count);
        open([&](frmSettings& form) { EXPECT_THAT(items(form.cboDefaultKB), ElementsAre(L"<None>")); });
    }
}

}  // namespace
}  // namespace tests
