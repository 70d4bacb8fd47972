// The sample add-in against the built control: every sequence of docs/integration.md, as a user starts it.
#include "samples/addin/sample_addin.h"

#include <commctrl.h>
#include <gmock/gmock.h>

#include "kb/frmKBConfiguration.ids.h"
#include "page/ctlPPE.ids.h"
#include "report/frmSendBugReport.ids.h"
#include "samples/addin/records.h"
#include "settings/frmSettings.ids.h"
#include "tests/samples/person.h"
#include "tests/windows/com/control_test.h"
#include "tests/windows/stage/messages.h"
#include "tests/windows/stage/scratch_folder.h"

namespace tests {
namespace {

namespace records = sample::records;
using testing::Contains;
using testing::ElementsAre;

constexpr wchar_t DIALOG[] = L"Knowledgebases";
constexpr wchar_t QUESTION[] = L"Quillmark";
constexpr wchar_t REPORT[] = L"Send report";

class SampleAddIn : public ContainerTest {
protected:
    SampleAddIn() {
        registerAddIn();
        records::put(records::ROOT, L"CurrentProfile", std::wstring(L"Sample"));
        records::put(records::profile(), L"VexaBaseDir", folder.path());
        records::put(records::profile(), L"LogPath", folder.path() + L"\\");
        addIn = std::make_unique<sample::AddIn>();
        container.acceptAnything();
        create();
        enterSite();
        doVerb(OLEIVERB_INPLACEACTIVATE);
    }
    ~SampleAddIn() override { endAll(); }

    void press(int identifier) { PostMessageW(child(identifier), BM_CLICK, 0, 0); }
    /// Opens the knowledgebase dialog, does what was planned, and closes it.
    void withKnowledgebases(const std::function<void()>& plan) {
        press(IDC_cmdKnowledgeBase);
        plan();
        person.press(DIALOG, IDCANCEL);
        person.waitGone(DIALOG);
        person.doAll();
    }
    void addKnowledgebase() {
        person.press(DIALOG, IDC_KB_cmdAdd);
        person.name(DIALOG, IDC_sftKBConfiguration, L"mail");
        person.answer(QUESTION, IDYES);  // to be updated by itself?
        person.waitEnabled(DIALOG, IDC_cmdRebuild);
    }
    void apply() { EXPECT_EQ(as<PropertyPage>()->Apply(), S_OK); }
    [[nodiscard]] bool wizardIsOffered() const { return IsWindowEnabled(child(IDC_cmdWizard)) != FALSE; }

    const ScratchFolder folder;
    std::unique_ptr<sample::AddIn> addIn;
    Person person;
};

TEST_F(SampleAddIn, IsFoundByThePage) {
    EXPECT_TRUE(IsWindowEnabled(child(IDC_cmdKnowledgeBase)));
    EXPECT_NE(records::number(records::profile(), L"hWndProperties"), 0u);
}

// Events 0 and 2, and the settings that are applied at once.
TEST_F(SampleAddIn, MakesAKnowledgebaseAndIndexesItsFolders) {
    withKnowledgebases([this] { addKnowledgebase(); });
    EXPECT_THAT(addIn->journal, ElementsAre(L"added mail", L"default mail", L"edit mail"));
    EXPECT_EQ(records::text(records::profile(), L"Project1"), L"mail");
    EXPECT_EQ(records::number(records::profile() + L"\\mail", L"KBDocuments"), 120u);
    EXPECT_EQ(records::text(records::profile(), L"DefaultProject"), L"mail");
    EXPECT_FALSE(wizardIsOffered()) << "there is content now";
}

// Events 4 and 5.
TEST_F(SampleAddIn, RebuildsAndUpdates) {
    withKnowledgebases([this] {
        addKnowledgebase();
        person.press(DIALOG, IDC_cmdRebuild);
        person.waitEnabled(DIALOG, IDC_cmdUpdate);
        person.press(DIALOG, IDC_cmdUpdate);
        person.waitEnabled(DIALOG, IDC_cmdUpdate);
    });
    EXPECT_THAT(addIn->journal,
                ElementsAre(L"added mail", L"default mail", L"edit mail", L"rebuild mail", L"update mail"));
    EXPECT_EQ(records::number(records::profile(), L"KBProcessState"), 0u) << "the page deletes it at the end";
}

// Event 3.
TEST_F(SampleAddIn, Renames) {
    withKnowledgebases([this] {
        addKnowledgebase();
        person.press(DIALOG, IDC_cmdRename);
        person.name(DIALOG, IDC_sftKBConfiguration, L"letters");
    });
    EXPECT_THAT(addIn->journal, Contains(L"renamed mail to letters"));
    EXPECT_EQ(records::text(records::profile(), L"Project1"), L"letters");
    EXPECT_EQ(records::number(records::profile() + L"\\letters", L"KBDocuments"), 120u);
    EXPECT_EQ(records::text(records::profile(), L"DefaultProject"), L"letters") << "the page's part";
}

// Event 1, and the message that follows the event.
TEST_F(SampleAddIn, Removes) {
    withKnowledgebases([this] {
        addKnowledgebase();
        person.press(DIALOG, IDC_KB_cmdRemove);
        person.answer(QUESTION, IDYES);
        person.plan(
            "the end of the removal", [this] { return addIn->journal.back() == L"gone"; }, [] {});
        person.waitEnabled(DIALOG, IDC_KB_cmdAdd);
    });
    EXPECT_THAT(addIn->journal, Contains(L"removed mail"));
    EXPECT_EQ(addIn->journal.back(), L"gone");
    EXPECT_EQ(records::number(records::profile(), L"ProjectCount"), 0u);
    EXPECT_EQ(records::text(records::profile(), L"DefaultProject"), L"");
    EXPECT_FALSE(ScratchFolder::read(folder.path() + L"\\mail.dct").has_value());
}

// Event 6, and the hidden button.
TEST_F(SampleAddIn, StartsTheWizardAndSwitchesItsButton) {
    ASSERT_TRUE(wizardIsOffered());
    press(IDC_cmdWizard);
    deliverFor(100);
    EXPECT_THAT(addIn->journal, ElementsAre(L"wizard default"));
    const auto hidden = reinterpret_cast<HWND>(
        static_cast<ULONG_PTR>(records::number(records::profile(), L"hWndProperties")));
    SendMessageW(hidden, WM_KEYDOWN, 21, 0);
    EXPECT_FALSE(wizardIsOffered());
    SendMessageW(hidden, WM_KEYDOWN, 20, 0);
    EXPECT_TRUE(wizardIsOffered());
}

TEST_F(SampleAddIn, SearchesAndThePageWaits) {
    addIn->searching = true;
    deliverFor(600);
    EXPECT_FALSE(IsWindowEnabled(child(IDC_cmdSettings)));
    addIn->searching = false;
    deliverFor(600);
    EXPECT_TRUE(IsWindowEnabled(child(IDC_cmdSettings)));
}

TEST_F(SampleAddIn, UpdatesByItselfAndADialogThatOpensWaits) {
    withKnowledgebases([this] { addKnowledgebase(); });
    addIn->runAutoUpdate();
    withKnowledgebases([this] { person.waitEnabled(DIALOG, IDC_cmdUpdate); });
    EXPECT_EQ(records::number(records::profile(), L"KBProcessState"), 0u);
}

TEST_F(SampleAddIn, IsToldOfAppliedSettings) {
    press(IDC_cmdSettings);
    person.press(L"Settings", IDC_chkLoggingInformation);
    person.plan(
        "choose the other shortcut", [] { return Person::find(L"Settings") != nullptr; },
        [] {
            const HWND dialog = Person::find(L"Settings");
            const HWND combo = GetDlgItem(dialog, IDC_cboSearchShortcut);
            SendMessageW(combo, CB_SETCURSEL, 1, 0);
            SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDC_cboSearchShortcut, CBN_SELCHANGE),
                         reinterpret_cast<LPARAM>(combo));
        });
    person.press(L"Settings", IDOK);
    person.waitGone(L"Settings");
    person.doAll();
    apply();
    EXPECT_THAT(addIn->journal, Contains(L"shortcut 1"));
    EXPECT_EQ(addIn->journal.back(), L"logging off");
}

/// Presses the first button of a toolbar with the mouse.
void pressFirst(HWND toolbar) {
    RECT place{};
    SendMessageW(toolbar, TB_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&place));
    const LPARAM point = MAKELPARAM((place.left + place.right) / 2, (place.top + place.bottom) / 2);
    PostMessageW(toolbar, WM_LBUTTONDOWN, MK_LBUTTON, point);
    PostMessageW(toolbar, WM_LBUTTONUP, 0, point);
}

TEST_F(SampleAddIn, SendsTheReport) {
    press(IDC_cmdSettings);
    person.press(L"Settings", IDC_cmdSendLog);
    person.plan(
        "write the report", [] { return Person::find(REPORT) != nullptr; },
        [] {
            SetWindowTextW(GetDlgItem(Person::find(REPORT), IDC_txtTo), L"help@example.com");
            SetWindowTextW(GetDlgItem(Person::find(REPORT), IDC_txtSubject), L"A fault");
            pressFirst(GetDlgItem(Person::find(REPORT), IDC_tbrBugReport));
        });
    person.waitGone(REPORT);
    person.press(L"Settings", IDCANCEL);
    person.waitGone(L"Settings");
    person.doAll();
    EXPECT_THAT(addIn->journal, ElementsAre(L"mail to help@example.com, A fault, importance 0"));
}

}  // namespace
}  // namespace tests
