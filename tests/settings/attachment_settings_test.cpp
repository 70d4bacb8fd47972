// The attachment settings dialog.
#include "tests/settings/settings_test_base.h"
#include "tests/stage/dialog_table.h"
#include "tests/support/known_settings.h"

namespace tests {
namespace {

class AttachmentSettings : public SettingsTest {
protected:
    void open(FunctionRef<void(frmAttachment&)> script) { openAttachments(script); }
    void setExtensions(const std::wstring& available, const std::wstring& selected) {
        setText(L"AvailableExtensions", available);
        setText(L"SelectedExtensions", selected);
        calls.clear();
    }
    /// Opens the dialog with lists that have room for just so many items.
    void openWithRoom(int available, int selected, FunctionRef<void(frmAttachment&)> script) {
        frmAttachment form(application, stage->owner());
        stage->setRoom(form.lstAvailable, available);
        stage->setRoom(form.lstSelected, selected);
        show(form, script);
    }
    /// Opens the dialog with these lists on their tab.
    void openLists(const std::wstring& available, const std::wstring& selected,
                   FunctionRef<void(frmAttachment&)> script) {
        setExtensions(available, selected);
        open([&](frmAttachment& form) {
            showExtensions(form);
            script(form);
        });
    }
    void showExtensions(frmAttachment& form) { user.pickTab(form.sstAttachments, 1); }

    static ui::OptionButton& everyFile(frmAttachment& form) { return form.optKBAddAll[0]; }
    static ui::OptionButton& limited(frmAttachment& form) { return form.optKBAddAll[1]; }
    static std::vector<bool> sizeField(frmAttachment& form) {
        return {form.lblMaxSize.enabled(), form.txtMaxSize.enabled(), form.updMaxSize.enabled()};
    }
    static std::vector<bool> moveButtons(frmAttachment& form) {
        return {form.cmdAdd.enabled(), form.cmdRemove.enabled()};
    }
    const std::vector<bool> on = {true, true, true};
    const std::vector<bool> off = {false, false, false};
};

// --- Loading ----------------------------------------------------------------------------------------------

TEST_F(AttachmentSettings, TabsBearTheirCaptionsAndPictureButtonsTooltips) {
    open([&](frmAttachment& form) {
        EXPECT_EQ(form.sstAttachments.count(), 2);
        EXPECT_EQ(form.sstAttachments.tabCaption(0), L"Knowledgebase");
        EXPECT_EQ(form.sstAttachments.tabCaption(1), L"Extensions");
        EXPECT_EQ(form.cmdAdd.tooltip(), L"Add to the selected extensions");
        EXPECT_EQ(form.cmdRemove.tooltip(), L"Remove from the selected extensions");
        EXPECT_EQ(form.txtMaxSize.description(), L"1 to 65000");
    });
}

TEST_F(AttachmentSettings, TheControlsShowTheRecord) {
    settings.AddAttachments = settings.AddSizelimitedAttachments = settings.AddAttachmentsToQuery = true;
    settings.AddAllAttachments = false;
    settings.AttachmentsMaxSize = 512;
    open([&](frmAttachment& form) {
        EXPECT_TRUE(form.chkKBAdd.checked());
        EXPECT_FALSE(everyFile(form).selected());
        EXPECT_TRUE(limited(form).selected());
        EXPECT_EQ(form.txtMaxSize.text(), L"512");
        EXPECT_TRUE(form.chkFindAtt.checked());
        EXPECT_EQ(sizeField(form), on);
    });
}

TEST_F(AttachmentSettings, WithNothingStoredBothListsAreEmptyAndTheButtonsDisabled) {
    open([&](frmAttachment& form) {
        EXPECT_EQ(form.lstAvailable.count(), 0);
        EXPECT_EQ(form.lstSelected.count(), 0);
        EXPECT_THAT(moveButtons(form), ElementsAre(false, false));
        user.click(form.cmdOk);
    });
    EXPECT_EQ(storedText(L"SelectedExtensions"), L"");
}

TEST_F(AttachmentSettings, TheFirstItemOfEachListIsSelected) {
    setExtensions(L"doc;txt;zip;", L"pdf;rtf;");
    open([&](frmAttachment& form) {
        EXPECT_THAT(selectedItems(form.lstAvailable), ElementsAre(L"doc"));
        EXPECT_THAT(selectedItems(form.lstSelected), ElementsAre(L"pdf"));
        EXPECT_THAT(moveButtons(form), ElementsAre(true, true));
    });
}

// --- Enabling ---------------------------------------------------------------------------------------------

TEST_F(AttachmentSettings, TheSizeFieldIsEnabledWhileTickedForFilesOfMaximumSizeOnly) {
    limitSize();
    settings.AddAttachments = false;
    open([&](frmAttachment& form) {
        EXPECT_FALSE(everyFile(form).enabled());
        EXPECT_FALSE(limited(form).enabled());
        EXPECT_EQ(sizeField(form), off) << "unticked, whatever option is selected";
        user.click(form.chkKBAdd);
        EXPECT_TRUE(everyFile(form).enabled());
        EXPECT_TRUE(limited(form).enabled());
        EXPECT_EQ(sizeField(form), on);
        user.click(everyFile(form));
        EXPECT_EQ(sizeField(form), off);
        user.click(form.chkKBAdd);
        user.click(form.chkKBAdd);
        EXPECT_TRUE(everyFile(form).selected());
        EXPECT_EQ(sizeField(form), off) << "ticked";
        user.click(limited(form));
        EXPECT_EQ(sizeField(form), on);
        user.click(form.chkKBAdd);
        EXPECT_EQ(sizeField(form), off);
    });
}

TEST_F(AttachmentSettings, TheQueryCheckBoxIsIndependent) {
    open([&](frmAttachment& form) {
        user.click(form.chkKBAdd);
        EXPECT_TRUE(form.chkFindAtt.enabled());
        user.click(form.chkFindAtt);
        EXPECT_TRUE(form.chkFindAtt.checked());
        EXPECT_FALSE(form.chkKBAdd.checked());
    });
}

// --- Tabs -------------------------------------------------------------------------------------------------

TEST_F(AttachmentSettings, KeysChangeTheTabFromWhereverTheFocusIs) {
    setExtensions(L"doc;", L"pdf;");
    open([&](frmAttachment& form) {
        const auto tabAfter = [&](int key, int modifiers) {
            user.press(form.window(), key, modifiers);
            return form.sstAttachments.current();
        };
        form.chkKBAdd.setFocus();
        EXPECT_EQ(tabAfter(key::tab, ui::modifier::control), 1);
        EXPECT_TRUE(form.lstAvailable.hasFocus());
        EXPECT_EQ(tabAfter(key::tab, ui::modifier::control | ui::modifier::shift), 0);
        EXPECT_EQ(tabAfter(key::pageDown, ui::modifier::control), 1);
        EXPECT_EQ(tabAfter(key::pageDown, ui::modifier::control), 0) << "around the end";
        EXPECT_EQ(tabAfter(key::pageUp, ui::modifier::control), 1);
        EXPECT_TRUE(form.lstAvailable.hasFocus());
    });
}

TEST_F(AttachmentSettings, EachTabShowsItsControlsAndMovesTheFocusToItsFirst) {
    open([&](frmAttachment& form) {
        EXPECT_EQ(form.sstAttachments.current(), 0);
        EXPECT_TRUE(form.chkKBAdd.visible());
        EXPECT_FALSE(form.lstAvailable.visible());
        user.pickTab(form.sstAttachments, 1);
        EXPECT_EQ(form.sstAttachments.current(), 1);
        EXPECT_FALSE(form.chkKBAdd.visible());
        EXPECT_FALSE(form.updMaxSize.visible());
        EXPECT_TRUE(form.lstAvailable.visible());
        EXPECT_TRUE(form.cmdRemove.visible());
        EXPECT_TRUE(form.lstAvailable.hasFocus());
        user.pickTab(form.sstAttachments, 0);
        EXPECT_TRUE(form.chkKBAdd.visible());
        EXPECT_FALSE(form.lstSelected.visible());
        EXPECT_TRUE(form.chkKBAdd.hasFocus());
    });
}

TEST_F(AttachmentSettings, ThePageOfATabKeepsWhatWasDoneOnIt) {
    limitSize();
    open([&](frmAttachment& form) {
        user.click(form.chkFindAtt);
        user.pickTab(form.sstAttachments, 1);
        user.pickTab(form.sstAttachments, 0);
        EXPECT_TRUE(form.chkFindAtt.checked());
        EXPECT_EQ(sizeField(form), on);
    });
}

// --- Moving -----------------------------------------------------------------------------------------------

TEST_F(AttachmentSettings, EverythingSelectedDisablesAddAndEnablesRemove) {
    openLists(L"doc;txt;", L"", [&](frmAttachment& form) {
        user.click(form.cmdAdd);
        user.click(form.cmdAdd);
        EXPECT_EQ(form.lstAvailable.count(), 0);
        EXPECT_THAT(moveButtons(form), ElementsAre(false, true));
        user.click(form.cmdOk);
    });
    EXPECT_EQ(storedText(L"SelectedExtensions"), L"doc;txt;");
}

TEST_F(AttachmentSettings, AnEmptiedSelectedListIsWrittenAsTheEmptyText) {
    openLists(L"doc;", L"doc;pdf;", [&](frmAttachment& form) {
        user.click(form.cmdRemove);
        user.click(form.cmdRemove);
        EXPECT_THAT(moveButtons(form), ElementsAre(true, false));
        EXPECT_THAT(items(form.lstAvailable), ElementsAre(L"doc", L"pdf"));
        user.click(form.cmdOk);
    });
    EXPECT_EQ(storedText(L"SelectedExtensions"), L"");
}

TEST_F(AttachmentSettings, CtrlAAndAddMoveTheWholeListAndTheMovedItemsAreSelectedThere) {
    openLists(L"doc;txt;zip;", L"pdf;", [&](frmAttachment& form) {
        user.press(form.window(), 'A', ui::modifier::control);
        EXPECT_THAT(selectedItems(form.lstAvailable), ElementsAre(L"doc", L"txt", L"zip"));
        user.click(form.cmdAdd);
        EXPECT_EQ(form.lstAvailable.count(), 0);
        EXPECT_THAT(items(form.lstSelected), ElementsAre(L"pdf", L"zip", L"txt", L"doc"))
            << "walked from the last to the first";
        EXPECT_THAT(selectedItems(form.lstSelected), ElementsAre(L"zip", L"txt", L"doc"));
        user.click(form.cmdOk);
    });
    EXPECT_EQ(storedText(L"SelectedExtensions"), L"pdf;zip;txt;doc;");
}

TEST_F(AttachmentSettings, OnlyCtrlASelectsEverything) {
    openLists(L"doc;txt;", L"pdf;rtf;", [&](frmAttachment& form) {
        form.lstSelected.setFocus();
        user.press(form.window(), 'A');
        user.press(form.window(), 'B', ui::modifier::control);
        EXPECT_THAT(selectedItems(form.lstSelected), ElementsAre(L"pdf"));
        for (const int more : {0, ui::modifier::shift, ui::modifier::alt}) {
            form.lstSelected.selectAll(false);
            user.press(form.window(), 'A', ui::modifier::control | more);
            EXPECT_THAT(selectedItems(form.lstSelected), ElementsAre(L"pdf", L"rtf")) << more;
        }
        EXPECT_THAT(selectedItems(form.lstAvailable), ElementsAre(L"doc")) << "the other list is left alone";
    });
}

TEST_F(AttachmentSettings, SomeItemsPickedWithCtrlAreMovedAndTheSourcesFirstIsSelected) {
    openLists(L"a;b;c;d;e;", L"z;", [&](frmAttachment& form) {
        user.pickItem(form.lstAvailable, 1);
        user.pickItem(form.lstAvailable, 3, ui::modifier::control);
        EXPECT_THAT(selectedItems(form.lstAvailable), ElementsAre(L"b", L"d"));
        user.click(form.cmdAdd);
        EXPECT_THAT(items(form.lstAvailable), ElementsAre(L"a", L"c", L"e"));
        EXPECT_THAT(selectedItems(form.lstAvailable), ElementsAre(L"a"));
        EXPECT_THAT(items(form.lstSelected), ElementsAre(L"z", L"d", L"b"));
        EXPECT_THAT(selectedItems(form.lstSelected), ElementsAre(L"d", L"b")) << "z is not any more";
    });
}

TEST_F(AttachmentSettings, ARangePickedWithShiftIsMoved) {
    openLists(L"", L"a;b;c;d;", [&](frmAttachment& form) {
        user.pickItem(form.lstSelected, 1);
        user.pickItem(form.lstSelected, 3, ui::modifier::shift);
        user.click(form.cmdRemove);
        EXPECT_THAT(items(form.lstSelected), ElementsAre(L"a"));
        EXPECT_THAT(items(form.lstAvailable), ElementsAre(L"d", L"c", L"b"));
        user.click(form.cmdOk);
    });
    EXPECT_EQ(storedText(L"SelectedExtensions"), L"a;");
}

TEST_F(AttachmentSettings, WithNothingSelectedAddOnlySelectsTheFirst) {
    openLists(L"a;b;", L"z;", [&](frmAttachment& form) {
        form.lstAvailable.selectAll(false);
        user.click(form.cmdAdd);
        EXPECT_THAT(items(form.lstAvailable), ElementsAre(L"a", L"b"));
        EXPECT_THAT(selectedItems(form.lstAvailable), ElementsAre(L"a"));
        EXPECT_THAT(selectedItems(form.lstSelected), IsEmpty());
    });
}

TEST_F(AttachmentSettings, CtrlADoesNotLookForAnItemOfItsCharacter) {
    openLists(L"doc;\u0001a;txt;", L"", [&](frmAttachment& form) {
        user.press(form.window(), 'A', ui::modifier::control);
        EXPECT_THAT(selectedItems(form.lstAvailable), ElementsAre(L"doc", L"\u0001a", L"txt"));
    });
}

TEST_F(AttachmentSettings, AMoveThatStopsHalfWayLeavesTheButtonsByTheirRule) {
    setExtensions(L"a;b;c;d;", L"");
    openWithRoom(4, 2, [&](frmAttachment& form) {
        showExtensions(form);
        user.press(form.window(), 'A', ui::modifier::control);
        user.click(form.cmdAdd);
        EXPECT_THAT(items(form.lstAvailable), ElementsAre(L"a", L"b")) << "nothing is lost";
        EXPECT_THAT(items(form.lstSelected), ElementsAre(L"d", L"c"));
        EXPECT_THAT(moveButtons(form), ElementsAre(true, true));
        user.click(form.cmdOk);
    });
    EXPECT_EQ(storedText(L"SelectedExtensions"), L"d;c;");
}

TEST_F(AttachmentSettings, AnAvailableListThatCannotBeFilledLeavesTheSelectedOneWhole) {
    setExtensions(L"a;b;c;", L"X;y;");
    openWithRoom(1, 2, [&](frmAttachment& form) {
        EXPECT_THAT(items(form.lstAvailable), ElementsAre(L"a"));
        EXPECT_THAT(items(form.lstSelected), ElementsAre(L"x", L"y"));
        EXPECT_THAT(moveButtons(form), ElementsAre(true, true));
        user.click(form.cmdOk);
    });
    EXPECT_EQ(storedText(L"SelectedExtensions"), L"x;y;");
}

TEST_F(AttachmentSettings, ASelectedListThatCannotBeFilledKeepsWhatIsStored) {
    setExtensions(L"a;", L"X;Y;Z;");
    openWithRoom(1, 2, [&](frmAttachment& form) {
        EXPECT_THAT(items(form.lstSelected), ElementsAre(L"x", L"y"));
        EXPECT_THAT(moveButtons(form), ElementsAre(true, true));
        user.click(form.chkFindAtt);
        user.click(form.cmdOk);
    });
    EXPECT_EQ(storedText(L"SelectedExtensions"), L"X;Y;Z;");
    EXPECT_EQ(stage->value(SETTINGS_KEY, L"AddAttachmentsToQuery"), vexa::Value(1))
        << "the others are written";
}

TEST_F(AttachmentSettings, FiveThousandExtensionsMoveAtOnce) {
    std::wstring available;
    for (int index = 0; index < 5000; ++index) available += L"x" + std::to_wstring(index) + L";";
    openLists(available, L"", [&](frmAttachment& form) {
        ASSERT_EQ(form.lstAvailable.count(), 5000);
        user.press(form.window(), 'A', ui::modifier::control);
        user.click(form.cmdAdd);
        EXPECT_EQ(form.lstAvailable.count(), 0);
        EXPECT_EQ(form.lstSelected.count(), 5000);
        EXPECT_EQ(form.lstSelected.item(0), L"x4999");
        EXPECT_EQ(form.lstSelected.item(4999), L"x0");
        user.click(form.cmdOk);
    });
    EXPECT_EQ(storedText(L"SelectedExtensions").size(), available.size());
}

// --- Storing ----------------------------------------------------------------------------------------------

TEST_F(AttachmentSettings, OkWritesTheSixValuesInTheirOrder) {
    settings.AttachmentsMaxSize = 99;
    setExtensions(L"doc;", L"pdf;");
    open([&](frmAttachment& form) {
        calls.clear();
        user.click(form.cmdOk);
    });
    const std::string key = "registry set Software\\Norvane\\Quillmark\\";
    std::vector<std::string> expected{key + "SelectedExtensions = pdf;"};
    const char* value[] = {"1", "1", "0", "99", "0"};
    for (const std::string& name : namesOfAttachments())
        expected.push_back(key + name + " = " + value[expected.size() - 1]);
    EXPECT_EQ(calls.linesWith("registry set"), expected) << "unchanged ones, too";
}

TEST_F(AttachmentSettings, CancelWritesNothing) {
    const Settings before = settings;
    setExtensions(L"doc;", L"");
    open([&](frmAttachment& form) {
        user.click(form.chkKBAdd);
        showExtensions(form);
        user.click(form.cmdAdd);
        user.click(form.cmdCancel);
    });
    EXPECT_EQ(settings, before);
    EXPECT_EQ(storedText(L"SelectedExtensions"), L"");
    EXPECT_THAT(calls.linesWith("registry set"), IsEmpty());
    EXPECT_THAT(calls.linesWith("registry create"), IsEmpty());
}

TEST_F(AttachmentSettings, ItReadsAndWritesTheProfilesKey) {
    stage->setValue(SETTINGS_KEY, L"CurrentProfile", L"Jane");
    application.loadProfileKey();
    stage->setValue(L"Software\\Norvane\\Quillmark\\Jane", L"AvailableExtensions", L"doc;");
    open([&](frmAttachment& form) {
        EXPECT_THAT(items(form.lstAvailable), ElementsAre(L"doc"));
        user.click(form.cmdOk);
    });
    EXPECT_TRUE(stage->value(L"Software\\Norvane\\Quillmark\\Jane", L"SelectedExtensions").has_value());
    EXPECT_FALSE(stage->value(SETTINGS_KEY, L"SelectedExtensions").has_value());
}

// --- Keyboard ---------------------------------------------------------------------------------------------

TEST_F(AttachmentSettings, EnterReachesOkAndEscAndTheCloseBoxCancel) {
    expectEndings<frmAttachment>(
        &SettingsScene::openAttachments, [](frmAttachment& form) -> ui::CheckBox& { return form.chkFindAtt; },
        &Settings::AddAttachmentsToQuery);
}

TEST_F(AttachmentSettings, TabReachesTheControlsOfTheShownPageOnly) {
    limitSize();
    setExtensions(L"doc;", L"pdf;");
    open([&](frmAttachment& form) {
        expectTabOrder(form, {&form.chkKBAdd, &limited(form), &form.txtMaxSize, &form.chkFindAtt, &form.cmdOk,
                              &form.cmdCancel, &form.sstAttachments, &form.chkKBAdd});
        showExtensions(form);
        expectTabOrder(form, {&form.lstAvailable, &form.cmdAdd, &form.cmdRemove, &form.lstSelected,
                              &form.cmdOk, &form.cmdCancel, &form.sstAttachments, &form.lstAvailable});
    });
}

TEST_F(AttachmentSettings, TabsAreChangedByTheArrowKeys) {
    open([&](frmAttachment& form) {
        form.sstAttachments.setFocus();
        user.press(form.window(), key::right);
        EXPECT_EQ(form.sstAttachments.current(), 1);
        EXPECT_TRUE(form.lstAvailable.hasFocus());
        form.sstAttachments.setFocus();
        user.press(form.window(), key::left);
        EXPECT_EQ(form.sstAttachments.current(), 0);
        EXPECT_TRUE(form.chkKBAdd.hasFocus());
    });
}

TEST_F(AttachmentSettings, ExtensionsAreMovedByKeyboardAlone) {
    openLists(L"doc;txt;", L"", [&](frmAttachment& form) {
        user.press(form.window(), 'A', ui::modifier::control);
        user.press(form.window(), key::tab);
        EXPECT_TRUE(form.cmdAdd.hasFocus());
        user.press(form.window(), key::space);
        EXPECT_THAT(items(form.lstSelected), ElementsAre(L"txt", L"doc"));
        user.press(form.window(), 'S', ui::modifier::alt);
        EXPECT_TRUE(form.lstSelected.hasFocus());
        user.press(form.window(), key::enter);
    });
    EXPECT_EQ(storedText(L"SelectedExtensions"), L"txt;doc;");
}

TEST_F(AttachmentSettings, AccessKeysWorkOnTheShownPage) {
    limitSize();
    open([&](frmAttachment& form) {
        const auto alt = [&](int letter) { pressAlt(form, letter); };
        alt('S');
        EXPECT_TRUE(form.txtMaxSize.hasFocus()) << "the list of the same letter is hidden";
        alt('A');
        EXPECT_TRUE(everyFile(form).selected());
        alt('Z');
        EXPECT_TRUE(limited(form).selected());
        alt('X');
        EXPECT_TRUE(form.chkFindAtt.checked());
        alt('D');
        EXPECT_FALSE(form.chkKBAdd.checked());
        showExtensions(form);
        alt('S');
        EXPECT_TRUE(form.lstSelected.hasFocus());
        alt('V');
        EXPECT_TRUE(form.lstAvailable.hasFocus());
    });
}

// --- Every setting: stored before x what the user does x OK or Cancel -------------------------------------

void setOptions(Settings& settings, bool add, bool every, bool limited) {
    settings.AddAttachments = add;
    settings.AddAllAttachments = every;
    settings.AddSizelimitedAttachments = limited;
}

std::vector<Before> attachmentsBefore() {
    return {
        {"Defaults", [](Settings&) {}},
        {"Limited", [](Settings& s) { setOptions(s, true, false, true); }},
        {"Neither", [](Settings& s) { setOptions(s, true, false, false); }},
        {"OffEvery", [](Settings& s) { setOptions(s, false, true, false); }},
        {"OffLimited", [](Settings& s) { setOptions(s, false, false, true); }},
        {"SmallestSize", [](Settings& s) { s.AttachmentsMaxSize = 1; }},
        {"LargestSize", [](Settings& s) { s.AttachmentsMaxSize = 65000; }},
        {"Query", [](Settings& s) { s.AddAttachmentsToQuery = true; }},
    };
}

void tick(User& user, frmAttachment& form) {
    if (!form.chkKBAdd.checked()) user.click(form.chkKBAdd);
}

std::vector<Deed<frmAttachment>> attachmentDeeds() {
    return {
        {"Nothing", [](User&, frmAttachment&) {}, [](Settings&) {}},
        {"Add", [](User& user, frmAttachment& form) { user.click(form.chkKBAdd); },
         [](Settings& s) { s.AddAttachments = !s.AddAttachments; }},
        {"EveryFile",
         [](User& user, frmAttachment& form) {
             tick(user, form);
             user.click(form.optKBAddAll[0]);
         },
         [](Settings& s) { setOptions(s, true, true, false); }},
        {"LimitedFiles",
         [](User& user, frmAttachment& form) {
             tick(user, form);
             user.click(form.optKBAddAll[1]);
         },
         [](Settings& s) { setOptions(s, true, false, true); }},
        {"LimitedThenOff",
         [](User& user, frmAttachment& form) {
             tick(user, form);
             user.click(form.optKBAddAll[1]);
             user.click(form.chkKBAdd);
         },
         [](Settings& s) { setOptions(s, false, false, true); }},
        {"Size",
         [](User& user, frmAttachment& form) {
             tick(user, form);
             user.click(form.optKBAddAll[1]);
             typeOver(user, form.txtMaxSize, L"2048");
         },
         [](Settings& s) {
             setOptions(s, true, false, true);
             s.AttachmentsMaxSize = 2048;
         }},
        {"Query", [](User& user, frmAttachment& form) { user.click(form.chkFindAtt); },
         [](Settings& s) { s.AddAttachmentsToQuery = !s.AddAttachmentsToQuery; }},
    };
}

class AttachmentSettingsTable : public AttachmentSettings,
                                public testing::WithParamInterface<DialogRow<frmAttachment>> {};

TEST_P(AttachmentSettingsTable, ForgetsOnCancelAndWritesAndStoresOnOk) {
    const auto& [before, deed] = GetParam();
    setExtensions(L"doc;pdf;", L"pdf;");
    before.prepare(settings);
    const Settings old = settings;
    open(playRow(user, deed, false));
    EXPECT_EQ(settings, old);
    for (const std::string& name : namesOfAttachments())
        EXPECT_FALSE(stage->value(SETTINGS_KEY, fromUtf8(name))) << name;

    Settings expected = old;
    deed.result(expected);
    open(playRow(user, deed, true));
    EXPECT_EQ(settings, expected);
    EXPECT_EQ(application.flags, ChangeFlags());
    EXPECT_EQ(storedText(L"SelectedExtensions"), L"pdf;");
    const std::int32_t values[] = {expected.AddAttachments, expected.AddAllAttachments,
                                   expected.AddSizelimitedAttachments, expected.AttachmentsMaxSize,
                                   expected.AddAttachmentsToQuery};
    std::size_t index = 0;
    for (const std::string& name : namesOfAttachments())
        EXPECT_EQ(stage->value(SETTINGS_KEY, fromUtf8(name)), vexa::Value(values[index++])) << name;
}

INSTANTIATE_TEST_SUITE_P(All, AttachmentSettingsTable, everyRow(attachmentsBefore(), attachmentDeeds()),
                         rowName<frmAttachment>);

}  // namespace
}  // namespace tests
