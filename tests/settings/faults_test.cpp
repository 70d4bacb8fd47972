// One run per outside call in which just that call fails: the settings dialogs load what they can, and OK
// writes what it can.
#include "tests/settings/settings_test_base.h"
#include "tests/stage/fault_runs.h"
#include "tests/support/known_settings.h"

namespace tests {
namespace {

/// A fresh stage with settings, whose calls fail one by one.
struct Scene : SettingsScene {
    Scene() {
        setKnowledgebases({L"Mail", L"Work"});
        setText(L"DefaultProject", L"Work");
        setText(L"AvailableExtensions", L"doc;pdf;txt;");
        setText(L"SelectedExtensions", L"pdf;");
        settings.MaxEntries = 55;
        settings.AutoFindDelay = 5;
        settings.AttachmentsMaxSize = 77;
        limitSize();
    }

    [[nodiscard]] bool stored(const std::wstring& name) {
        return stage->value(SETTINGS_KEY, name).has_value();
    }
};

void failEachCall(FunctionRef<void(Scene&, const Arm&)> deed,
                  FunctionRef<void(Scene&, const std::string& failed)> check) {
    failEachCallOn<Scene>(deed, [&](Scene& scene, const std::string& failed) {
        check(scene, failed);
        EXPECT_THAT(scene.stage->messages(), IsEmpty());
    });
}

TEST(SettingsFaults, EachCallOfTheSearchDialogsLoadMayFailAndTheRestIsLoaded) {
    failEachCall(
        [](Scene& scene, const Arm& arm) {
            arm();
            scene.openSearch([&](frmSettings& form) {
                EXPECT_EQ(form.txtEntryCount.text(), L"55");
                EXPECT_EQ(form.txtMinRel.text(), L"40");
                EXPECT_EQ(form.txtDelay.text(), L"5");
                EXPECT_EQ(form.cboSearchShortcut.selectedIndex(), 0);
                EXPECT_EQ(form.cboDefaultKB.item(0), L"<None>");
                EXPECT_GE(form.cboDefaultKB.selectedIndex(), 0);
                EXPECT_TRUE(form.cmdSendLog.enabled());
                EXPECT_FALSE(form.txtDelay.enabled());
            });
        },
        [](Scene& scene, const std::string&) {
            // What failed once is there again at the next opening.
            scene.openSearch([&](frmSettings& form) {
                EXPECT_EQ(items(form.cboDefaultKB), (Strings{L"<None>", L"Mail", L"Work"}));
                EXPECT_EQ(form.cboDefaultKB.selectedIndex(), 2);
                scene.user.click(form.cmdOk);
            });
            EXPECT_EQ(scene.settings.DefaultProject, L"Work");
            EXPECT_EQ(scene.application.flags, ChangeFlags());
        });
}

TEST(SettingsFaults, OkOfTheSearchDialogMakesNoOutsideCall) {
    Scene scene;
    scene.openSearch([&](frmSettings& form) {
        scene.calls.clear();
        scene.user.click(form.cmdOk);
    });
    EXPECT_THAT(scene.calls.lines(), IsEmpty());
}

/// What of the attachment dialog is loaded whichever call fails.
void expectLoaded(frmAttachment& form) {
    EXPECT_TRUE(form.chkKBAdd.checked());
    EXPECT_EQ(form.txtMaxSize.text(), L"77");
    EXPECT_TRUE(form.txtMaxSize.enabled());
    EXPECT_EQ(form.cmdAdd.enabled(), form.lstAvailable.count() > 0);
    EXPECT_EQ(form.cmdRemove.enabled(), form.lstSelected.count() > 0);
    // One of the two lists is read where the other is not.
    EXPECT_GT(form.lstAvailable.count() + form.lstSelected.count(), 0);
}

TEST(SettingsFaults, EachCallOfTheAttachmentDialogsLoadMayFailAndTheRestIsLoaded) {
    failEachCall(
        [](Scene& scene, const Arm& arm) {
            arm();
            scene.openAttachments([&](frmAttachment& form) { expectLoaded(form); });
        },
        [](Scene& scene, const std::string&) {
            EXPECT_EQ(scene.storedText(L"SelectedExtensions"), L"pdf;");
            scene.openAttachments([&](frmAttachment& form) {
                EXPECT_EQ(items(form.lstAvailable), (Strings{L"doc", L"txt"}));
                EXPECT_EQ(items(form.lstSelected), (Strings{L"pdf"}));
            });
        });
}

TEST(SettingsFaults, AfterAFailedLoadOkOfTheAttachmentDialogStoresWhatItShows) {
    std::wstring shown;
    failEachCall(
        [&](Scene& scene, const Arm& arm) {
            arm();
            scene.openAttachments([&](frmAttachment& form) {
                scene.calls.forgetFaults();
                shown = form.lstSelected.count() > 0 ? L"pdf;" : L"";
                scene.user.click(form.cmdOk);
            });
        },
        [&](Scene& scene, const std::string& failed) {
            // A text that cannot be read is a missing one to the dialog.
            const bool read = !failed.starts_with("registry query") ||
                              failed.find("SelectedExtensions") == std::string::npos;
            if (!read) {
                EXPECT_EQ(shown, L"");
            }
            EXPECT_EQ(scene.storedText(L"SelectedExtensions"), shown);
            EXPECT_EQ(scene.storedText(L"AvailableExtensions"), L"doc;pdf;txt;");
            EXPECT_EQ(scene.settings.AttachmentsMaxSize, 77);
            EXPECT_EQ(scene.stage->value(SETTINGS_KEY, L"AttachmentsMaxSize"), vexa::Value(77));
            EXPECT_EQ(scene.stage->value(SETTINGS_KEY, L"AddSizelimitedAttachments"), vexa::Value(1));
        });
}

TEST(SettingsFaults, AfterAFailedLoadOkOfTheSearchDialogStoresWhatItShows) {
    std::wstring shown;
    failEachCall(
        [&](Scene& scene, const Arm& arm) {
            arm();
            scene.openSearch([&](frmSettings& form) {
                const int index = form.cboDefaultKB.selectedIndex();
                shown = index == 0 ? L"" : form.cboDefaultKB.item(index);
                scene.user.click(form.cmdOk);
            });
        },
        [&](Scene& scene, const std::string&) {
            EXPECT_EQ(scene.settings.DefaultProject, shown);
            EXPECT_EQ(scene.settings.MaxEntries, 55);
            EXPECT_EQ(scene.settings.AutoFindDelay, 5);
            EXPECT_EQ(scene.settings.FindShortcut, 0);
            EXPECT_TRUE(scene.settings.LoggingInformation);
            EXPECT_EQ(scene.storedText(L"DefaultProject"), L"Work") << "the registry waits for Apply";
        });
}

TEST(SettingsFaults, EachCallOfTheAttachmentDialogsOkMayFailAndTheOtherValuesAreWritten) {
    failEachCall(
        [](Scene& scene, const Arm& arm) {
            scene.openAttachments([&](frmAttachment& form) {
                scene.user.click(form.chkFindAtt);
                arm();
                scene.user.click(form.cmdOk);
                EXPECT_FALSE(form.window().isOpen());
            });
        },
        [](Scene& scene, const std::string& failed) {
            int missing = 0;
            for (const std::string& name : namesOfAttachments())
                missing += scene.stored(fromUtf8(name)) ? 0 : 1;
            const bool writeFailed =
                failed.starts_with("registry create") || failed.starts_with("registry set");
            EXPECT_LE(missing, writeFailed ? 1 : 0);
            EXPECT_TRUE(scene.settings.AddAttachmentsToQuery) << "the record is updated all the same";
            EXPECT_EQ(scene.settings.AttachmentsMaxSize, 77);
        });
}

TEST(SettingsFaults, AFailedReadOfTheSelectedExtensionsShowsThemAsAvailable) {
    Scene scene;
    scene.calls.failCallsWith("registry query Software\\Norvane\\Quillmark\\SelectedExtensions");
    scene.openAttachments([&](frmAttachment& form) {
        EXPECT_EQ(items(form.lstAvailable), (Strings{L"doc", L"pdf", L"txt"}));
        EXPECT_EQ(form.lstSelected.count(), 0);
    });
}

}  // namespace
}  // namespace tests
