// The dialogs' layout keeps the usual rules, and each rule is seen to be broken where it is.
#include "tests/lint/dialog_layout.h"

#include <gmock/gmock.h>

#include "tests/lint/dialog_pages.h"

namespace headless {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;

TEST(DialogLayout, NoDialogBreaksARule) {
    std::size_t measured = 0;
    for (const DialogTemplate& dialog : allDialogs()) {
        EXPECT_THAT(layoutFindings(dialog), IsEmpty()) << dialog.idName;
        measured += dialog.controls.size();
    }
    EXPECT_GT(measured, 100U);
}

/// One flaw: a part of a control's place, by how much it is off, and what is found.
struct Flaw {
    const char* dialog;
    const char* control;
    int ui::Rect::*part;
    int off;
    const char* finding;
};

constexpr Flaw FLAWS[] = {
    {"IDD_frmKBConfiguration", "IDC_cmdCancel", &ui::Rect::left, -1, "its row ends at 392"},
    {"IDD_frmKBConfiguration", "IDC_cmdRebuild", &ui::Rect::top, 3, "IDC_cmdRebuild: 10 units below"},
    {"IDD_frmKBConfiguration", "IDC_cmdEdit", &ui::Rect::width, 12, "IDC_cmdEdit is 62 wide"},
    {"IDD_frmKBConfiguration", "IDC_sftKBConfiguration", &ui::Rect::width, -3, "units beside"},
    {"IDD_frmSettings", "IDC_txtMinRel", &ui::Rect::height, -2, "IDC_txtMinRel is 12 high"},
    {"IDD_frmSettings", "IDC_cboDefaultKB", &ui::Rect::left, 4, "begins at another line"},
    {"IDD_frmSettings", "IDC_chkAutoInfo", &ui::Rect::left, 2, "IDC_chkAutoInfo: its row begins at 16"},
    {"IDD_frmSettings", "IDC_lblResCountInfo", &ui::Rect::width, -6, "its row ends at 226"},
    {"IDD_frmSettings", "IDC_lblDelay", &ui::Rect::top, -3, "is not level with"},
    {"IDD_frmSettings", "IDC_fraResultList", &ui::Rect::top, -3,
     "IDC_fraResultList: its content ends 3 after"},
    {"IDD_frmDispMatches", "IDC_lblSelHotspotColor", &ui::Rect::width, 3, "of another size"},
    {"IDD_frmDispMatches", "IDC_lblPenalty_3", &ui::Rect::left, 4, "in no grid"},
    {"IDD_frmSelectDefaultKB", "IDC_lblInfo", &ui::Rect::height, 2, "holds no whole lines"},
};

class PlantedFlaw : public testing::TestWithParam<Flaw> {};

TEST_P(PlantedFlaw, IsFound) {
    const Flaw& flaw = GetParam();
    const DialogTemplate dialog =
        flawed(flaw.dialog, flaw.control,
               [&](DialogTemplate& copy, std::size_t at) { copy.controls[at].units.*flaw.part += flaw.off; });
    EXPECT_THAT(layoutFindings(dialog), Contains(HasSubstr(flaw.finding)));
}

INSTANTIATE_TEST_SUITE_P(Flaws, PlantedFlaw, testing::ValuesIn(FLAWS));

}  // namespace
}  // namespace headless
