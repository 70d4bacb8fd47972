// What the composer does to the editor in memory, where it can be seen.
#include "tests/headless/rich_text.h"

#include "tests/report/report_test_base.h"

namespace tests {
namespace {

using testing::ElementsAre;

class HeadlessEditor : public ReportTest {};

TEST_F(HeadlessEditor, BulletsGetTheirIndentBeforeTheyAreSwitchedOn) {
    open([&](frmSendBugReport& form) {
        const auto& editor = dynamic_cast<const headless::RichText&>(form.rtfBody);
        user.type(form.rtfBody, L"text");
        user.clickButton(form.tbrProperties, button::bulletIndent);
        EXPECT_THAT(editor.bulletFormats(), ElementsAre("indent", "on"));
        user.clickButton(form.tbrProperties, button::bulletIndent);
        EXPECT_THAT(editor.bulletFormats(), ElementsAre("indent", "on", "off"));
    });
}

TEST_F(HeadlessEditor, BulletsOnAMixedSelectionSetNoIndent) {
    open([&](frmSendBugReport& form) {
        const auto& editor = dynamic_cast<const headless::RichText&>(form.rtfBody);
        user.type(form.rtfBody, L"ab\ncd");
        user.clickButton(form.tbrProperties, button::bulletIndent);
        form.rtfBody.select(0, 5);
        user.clickButton(form.tbrProperties, button::bulletIndent);
        EXPECT_THAT(editor.bulletFormats(), ElementsAre("indent", "on", "on"));
    });
}

}  // namespace
}  // namespace tests
