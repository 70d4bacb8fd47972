// Opening and closing the report composer leaves nothing behind.
#include "report/frmSendBugReport.h"
#include "tests/forms/stage.h"
#include "tests/windows/resource_count.h"

#include <gtest/gtest.h>

namespace tests {
namespace {

using vexa::frmSendBugReport;

void openOnce(Stage& stage) {
    stage.whenShown<frmSendBugReport>([&](frmSendBugReport& form) {
        form.rtfBody.setText(L"some text");
        form.rtfBody.setFocus();
        form.rtfBody.select(0, 4);
        form.rtfBody.setBold(true);
        stage.user().closeWindow(form.window());
    });
    vexa::showBugReport(stage.application(), stage.owner());
    stage.calls().clear();
}

TEST(ReportLeaks, ThreeHundredOpeningsLeaveNoHandleAndNoMemoryBehind) {
    constexpr int WARM_UP = 20;
    const auto stage = Stage::create();
    for (int opening = 0; opening < WARM_UP; ++opening) openOnce(*stage);
    const ResourceCount before = countResources();
    for (int opening = 0; opening < 300; ++opening) openOnce(*stage);
    EXPECT_EQ(countResources(), before);
}

}  // namespace
}  // namespace tests
