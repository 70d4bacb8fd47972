// What screen readers are told of every control of the page and of every dialog.
#include <windows.h>

#include <commctrl.h>

#include <algorithm>

#include "settings/frmDispMatches.ids.h"
#include "tests/windows/controls/annotations_stand_in.h"
#include "tests/windows/controls/product_dialogs.h"
#include "tests/windows/controls/reader_table.h"
#include "tests/windows/stage/user.h"

namespace tests {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class Accessibility : public EachProductDialog {
protected:
    AnnotationsStandIn annotations;
};

TEST_P(Accessibility, EveryControlThatCanHaveTheFocusIsToldByAName) {
    inDialog([&](ui::Form&, HWND dialog) { expectEachNamed(GetParam().name, dialog, annotations); });
    EXPECT_EQ(annotations.kept(), 0U) << "words are taken back before their window goes";
    EXPECT_EQ(annotations.forgotten(), 0U);
}

INSTANTIATE_TEST_SUITE_P(Dialogs, Accessibility, testing::ValuesIn(PRODUCT_DIALOGS), dialogName);

class AccessibilityOfOne : public ProductDialogs {
protected:
    /// The page takes its words back from the stand-in, which therefore outlives it.
    void TearDown() override { page.reset(); }

    AnnotationsStandIn annotations;
    Told ask(const ui::Control& control) { return askReader(windowOf(control), annotations); }
};

TEST_F(AccessibilityOfOne, ButtonsOfThePageTellWhatTheyAreFor) {
    for (const ui::Button* button : {&page->cmdKnowledgeBase, &page->cmdSettings, &page->cmdAttachments,
                                     &page->cmdDispMatches, &page->cmdWizard}) {
        const Told told = ask(*button);
        EXPECT_THAT(told.name, Not(IsEmpty()));
        EXPECT_THAT(told.description, HasSubstr(L".")) << "a sentence";
    }
    EXPECT_THAT(ask(page->cmdAttachments).description, HasSubstr(L"attached files"));
}

TEST_F(AccessibilityOfOne, SwatchesTellTheirColourAndAreToldApart) {
    open<vexa::frmDispMatches>([&](vexa::frmDispMatches& form) {
        EXPECT_EQ(ask(form.lblSelHotspotColor).name, L"Select Color");
        EXPECT_EQ(ask(form.lblSelHotspotColor).value, L"Red 255, green 255, blue 0");
        EXPECT_EQ(ask(form.lblPenalty[0]).name, L"Best match");
        EXPECT_EQ(ask(form.lblPenalty[2]).value, L"Red 0, green 0, blue 255");
        form.lblPenalty[2].get().setColour(0x000080FF);
        EXPECT_EQ(annotations.wordsFor(windowOf(form.lblPenalty[2])).value, L"Red 255, green 128, blue 0")
            << "a reader that has asked hears of the new colour";
    });
}

TEST_F(AccessibilityOfOne, FieldsTellTheirRange) {
    open<vexa::frmSettings>([&](vexa::frmSettings& form) {
        EXPECT_EQ(ask(form.txtDelay).name, L"Delay");
        EXPECT_EQ(ask(form.txtDelay).description, L"0 - 60 (sec)");
        EXPECT_EQ(ask(form.txtEntryCount).description, L"10 to 10000");
        EXPECT_EQ(ask(form.txtMinRel).description, L"0 - 100(%)");
    });
}

TEST_F(AccessibilityOfOne, TheListTellsItsSort) {
    open<vexa::frmKBConfiguration>([&](vexa::frmKBConfiguration& form) {
        EXPECT_EQ(ask(form.sftKBConfiguration).name, L"Knowledgebases");
        user.clickHeader(form.sftKBConfiguration, 2);
        EXPECT_THAT(ask(form.sftKBConfiguration).value, HasSubstr(L"Sorted by Size, "));
        const std::wstring before = ask(form.sftKBConfiguration).value;
        user.clickHeader(form.sftKBConfiguration, 2);
        EXPECT_NE(annotations.wordsFor(windowOf(form.sftKBConfiguration)).value, before);
    });
}

TEST_F(AccessibilityOfOne, TheListsHeadersTellTheSortOfTheirColumn) {
    open<vexa::frmKBConfiguration>([&](vexa::frmKBConfiguration& form) {
        const HWND list = windowOf(form.sftKBConfiguration);
        const auto header = reinterpret_cast<HWND>(SendMessageW(list, LVM_GETHEADER, 0, 0));
        user.clickHeader(form.sftKBConfiguration, 2);
        ask(form.sftKBConfiguration);
        EXPECT_THAT(annotations.wordsFor(header).parts,
                    testing::ElementsAre(L"Knowledgebase", L"Last Update", L"Size, sorted, descending",
                                         L"Documents"));
        user.clickHeader(form.sftKBConfiguration, 0);
        EXPECT_EQ(annotations.wordsFor(header).parts[2], L"Size");
        EXPECT_THAT(annotations.wordsFor(header).parts[0], HasSubstr(L", sorted, "));
    });
    EXPECT_EQ(annotations.kept(), 0U);
}

TEST_F(AccessibilityOfOne, ALockedListTellsThatItIs) {
    open<vexa::frmKBConfiguration>([&](vexa::frmKBConfiguration& form) {
        form.sftKBConfiguration.setAllRowsEnabled(false);
        EXPECT_THAT(ask(form.sftKBConfiguration).value, testing::StartsWith(L"Locked. Sorted by "));
        form.sftKBConfiguration.setAllRowsEnabled(true);
        EXPECT_THAT(annotations.wordsFor(windowOf(form.sftKBConfiguration)).value,
                    testing::StartsWith(L"Sorted by "));
    });
}

TEST_F(AccessibilityOfOne, TheStatusLineIsReadOutWhenItChanges) {
    open<vexa::frmKBConfiguration>([&](vexa::frmKBConfiguration& form) {
        user.clickRow(form.sftKBConfiguration, 0);
        user.click(form.cmdUpdate);
        EXPECT_EQ(ask(form.lblStatus).name, form.lblStatus.text());
        EXPECT_TRUE(annotations.wordsFor(windowOf(form.lblStatus)).live);
    });
    EXPECT_EQ(annotations.kept(), 0U);
}

TEST_F(AccessibilityOfOne, NothingIsKeptForADialogThatNobodyAsks) {
    open<vexa::frmDispMatches>([&](vexa::frmDispMatches& form) {
        form.lblSelHotspotColor.setColour(0x123456);
        EXPECT_EQ(annotations.kept(), 0U);
    });
}

}  // namespace
}  // namespace tests
