// The chooser of the auto-update knowledgebase.
#include "kb/frmSelectDefaultKB.h"
#include "tests/kb/kb_test_base.h"
#include "tests/support/shortage.h"

namespace tests {
namespace {

using vexa::frmSelectDefaultKB;

class DefaultChooser : public KBTest {
public:
    /// A chooser that the script leaves open is cancelled.
    void open(FunctionRef<void(frmSelectDefaultKB&)> script) {
        stage->whenShown<frmSelectDefaultKB>([&](frmSelectDefaultKB& form) {
            script(form);
            if (form.window().isOpen()) user.click(form.cmdCancel);
        });
        frmSelectDefaultKB(application, stage->owner()).Show();
    }
    void SetUp() override {
        KBTest::SetUp();
        recordNames({L"Mail", L"News"});
    }
};

TEST_F(DefaultChooser, CaptionsAreTheDialogsOwn) {
    open([&](frmSelectDefaultKB& form) {
        EXPECT_EQ(form.window().caption(), L"Select auto-update knowledgebase");
        EXPECT_EQ(form.lblInfo.text(),
                  L"Please select one of the defined knowledgebases to be configured for auto-update.");
        EXPECT_EQ(form.cmdCancel.text(), L"Cancel");
    });
}

TEST_F(DefaultChooser, ListsNoneAndEveryKnowledgebaseInItsOrderWithNoneSelected) {
    recordNames({L"Zulu", L"Mail"});
    stage->setValue(KEY, L"ProjectCount", 3);
    open([&](frmSelectDefaultKB& form) {
        Names rows;
        for (int row = 0; row < form.sftKnowledgebases.rowCount(); ++row)
            rows.push_back(form.sftKnowledgebases.cellText(row, 0));
        EXPECT_EQ(rows, (Names{L"<None>", L"Zulu", L"Mail", L""})) << "a missing name is empty";
        EXPECT_EQ(form.sftKnowledgebases.currentRow(), 0);
        EXPECT_EQ(form.sftKnowledgebases.row(0).picture, 0);
        EXPECT_NE(form.sftKnowledgebases.row(1).picture, 0);
    });
}

struct Choice {
    const char* name;
    std::function<void(frmSelectDefaultKB&)> choose;
    const wchar_t* taken;
};

TEST_F(DefaultChooser, TakesTheCurrentRowOnOKDoubleClickAndEnterAndNothingOnCancel) {
    const std::wstring before = L"Other";
    const Choice choices[] = {
        {"OK",
         [&](frmSelectDefaultKB& form) {
             user.clickRow(form.sftKnowledgebases, 2);
             user.click(form.cmdOK);
         },
         L"News"},
        {"OK on none", [&](frmSelectDefaultKB& form) { user.click(form.cmdOK); }, L""},
        {"a double click", [&](frmSelectDefaultKB& form) { user.doubleClickRow(form.sftKnowledgebases, 2); },
         L"News"},
        {"keys",
         [&](frmSelectDefaultKB& form) {
             user.press(form.window(), key::down);
             user.press(form.window(), key::enter);
         },
         L"Mail"},
        {"Cancel", [&](frmSelectDefaultKB& form) { user.clickRow(form.sftKnowledgebases, 2); },
         before.c_str()},
    };
    for (const Choice& choice : choices) {
        application.settings.DefaultProject = before;
        application.flags = {};
        bool closed = false;
        open([&](frmSelectDefaultKB& form) {
            choice.choose(form);
            closed = !form.window().isOpen();
        });
        EXPECT_EQ(application.settings.DefaultProject, choice.taken) << choice.name;
        EXPECT_EQ(closed, choice.taken != before) << choice.name;
        EXPECT_FALSE(choice.taken == before && application.flags.defaultKnowledgebaseChanged);
    }
}

TEST_F(DefaultChooser, WithoutKnowledgebasesOnlyNoneIsOffered) {
    stage->setValue(KEY, L"ProjectCount", -3);
    open([&](frmSelectDefaultKB& form) {
        EXPECT_EQ(form.sftKnowledgebases.rowCount(), 1);
        user.press(form.window(), key::escape);
        EXPECT_FALSE(form.window().isOpen());
    });
}

TEST_F(DefaultChooser, AnOKForWhichMemoryIsShortSaysSoChangesNothingAndStillCloses) {
    recordNames({std::wstring(100, L'm')});
    application.settings.DefaultProject = L"Mail";
    open([&](frmSelectDefaultKB& form) {
        user.clickRow(form.sftKnowledgebases, 1);
        {
            const MomentOfShortage shortage;
            form.cmdOK.onClick();
        }
        EXPECT_FALSE(form.window().isOpen());
    });
    EXPECT_EQ(application.settings.DefaultProject, L"Mail");
    EXPECT_THAT(log(), Contains("frmSelectDefaultKB, Error cmdOK_Click: Out of memory"));
}

}  // namespace
}  // namespace tests
