// Opening and closing the report composer leaves nothing behind.
#include "report/frmSendBugReport.h"
#include "report/frmSendBugReport.ids.h"
#include "tests/windows/leaks/leak_test.h"

namespace tests {
namespace {

using vexa::frmSendBugReport;

class ReportLeaks : public LeakTest {};

TEST_F(ReportLeaks, TheComposerLeavesNothingBehind) {
    const auto open = [&](const std::function<void(frmSendBugReport&)>& script) {
        stage->whenShown<frmSendBugReport>([&](frmSendBugReport& form) {
            script(form);
            user.closeWindow(form.window());
        });
        vexa::showBugReport(application, stage->owner());
    };
    // The bare dialog needs the editor's library, which the first composer loads.
    open([](frmSendBugReport&) {});
    expectNothingLeft(IDD_frmSendBugReport, [&] { open([](frmSendBugReport&) {}); });
}

}  // namespace
}  // namespace tests
