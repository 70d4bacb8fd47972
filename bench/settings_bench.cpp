// Opening the settings dialogs against the bare creation of their templates, and moving extensions.
#include <windows.h>

#include <string>

#include "bench/bare_calls.h"
#include "bench/dialogs.h"
#include "bench/ratio.h"
#include "settings/frmAttachment.h"
#include "settings/frmAttachment.ids.h"
#include "settings/frmSettings.h"
#include "settings/frmSettings.ids.h"

namespace {

void storeExtensions(bench::Dialogs& dialogs, int count) {
    std::wstring available;
    for (int index = 0; index < count; ++index) available += L"ext" + std::to_wstring(index) + L";";
    vexa::Application& application = dialogs.application;
    application.writeText(application.ProfileKey, vexa::valueName::AvailableExtensions, available);
}

/// All extensions to the other list and back again, in the open dialog.
void moveAll(vexa::frmAttachment& form) {
    form.lstAvailable.selectAll(true);
    form.cmdAdd.onClick();
    form.cmdRemove.onClick();
}

bool measureMoving(bench::Dialogs& dialogs) {
    bool met = true;
    // Both sizes are timed in dialogs that stay open, so that the moves alone count.
    storeExtensions(dialogs, 5000);
    dialogs.open<vexa::frmAttachment>([&](vexa::frmAttachment& large) {
        large.sstAttachments.setCurrent(1);
        storeExtensions(dialogs, 500);
        dialogs.open<vexa::frmAttachment>([&](vexa::frmAttachment& small) {
            small.sstAttachments.setCurrent(1);
            met = bench::measureGrowth("moving all extensions there and back", 12, 500, 5000, [&](int size) {
                vexa::frmAttachment& form = size == 500 ? small : large;
                return [&form] { moveAll(form); };
            });
        });
    });
    return met;
}

}  // namespace

int main() {
    const bench::OwnHive hive;
    bench::Dialogs dialogs;
    bool met = bench::measure({"opening the search settings", 1.3,
                               [&] {
                                   dialogs.open<vexa::frmSettings>([](vexa::frmSettings&) {},
                                                                   vexa::frmSettings::ReportOpener());
                               },
                               [&] { dialogs.openBare(IDD_frmSettings); }, 31, 2});
    met &= bench::measure({"opening the attachment settings", 1.3,
                           [&] { dialogs.open<vexa::frmAttachment>([](vexa::frmAttachment&) {}); },
                           [&] { dialogs.openBare(IDD_frmAttachment); }, 31, 2});
    met &= measureMoving(dialogs);
    return met ? 0 : 1;
}
