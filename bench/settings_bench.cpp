// Opening the settings dialogs against the bare creation of their templates, and moving extensions.
#include <windows.h>

#include <string>

#include "bench/bare_calls.h"
#include "bench/ratio.h"
#include "settings/frmAttachment.h"
#include "settings/frmAttachment.ids.h"
#include "settings/frmSettings.h"
#include "settings/frmSettings.ids.h"
#include "windows/controls/screen.h"
#include "windows/platform/machine.h"

namespace {

class NoAddIn : public vexa::AddInLocator {
public:
    std::shared_ptr<vexa::AddIn> running() override { return nullptr; }
};

/// The program on the real machine, with a page as the owner of its dialogs.
class Fixture {
public:
    Fixture() {
        application.loadProfileKey();
        owner = screen.createDialog(IDD_frmSettings, nullptr);
    }

    /// Opens a dialog of the program, plays `script` once its first messages have been handled, closes it.
    template <class Dialog, class... More>
    void open(const std::function<void(Dialog&)>& script, More&&... more) {
        screen.onModal = [&](ui::Form& form) {
            bench::handleMessages();
            script(dynamic_cast<Dialog&>(form));
            form.window().close();
        };
        Dialog(application, *owner, std::forward<More>(more)...).Show();
        screen.onModal = nullptr;
    }

private:
    NoAddIn locator_;
    win::Machine machine_{locator_};

public:
    win::Screen screen{GetModuleHandleW(nullptr)};
    vexa::Application application{machine_.platform(), screen};
    std::unique_ptr<ui::Window> owner;
};

INT_PTR CALLBACK bareProcedure(HWND, UINT message, WPARAM, LPARAM) { return message == WM_INITDIALOG; }

/// The same template made, shown, its first messages handled, and destroyed.
void openBare(const Fixture& fixture, int identifier) {
    const win::Activation themed(fixture.screen.context());
    const HWND owner = reinterpret_cast<HWND>(fixture.owner->handle());
    const HWND dialog =
        CreateDialogParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(identifier), owner, bareProcedure, 0);
    EnableWindow(owner, FALSE);
    ShowWindow(dialog, SW_SHOW);
    SetForegroundWindow(dialog);
    bench::handleMessages();
    EnableWindow(owner, TRUE);
    ShowWindow(dialog, SW_HIDE);
    DestroyWindow(dialog);
}

void storeExtensions(Fixture& fixture, int count) {
    std::wstring available;
    for (int index = 0; index < count; ++index) available += L"ext" + std::to_wstring(index) + L";";
    vexa::Application& application = fixture.application;
    application.writeText(application.ProfileKey, vexa::valueName::AvailableExtensions, available);
}

/// All extensions to the other list and back again, in the open dialog.
void moveAll(vexa::frmAttachment& form) {
    form.lstAvailable.selectAll(true);
    form.cmdAdd.onClick();
    form.cmdRemove.onClick();
}

bool measureMoving(Fixture& fixture) {
    bool met = true;
    // Both sizes are timed in dialogs that stay open, so that the moves alone count.
    storeExtensions(fixture, 5000);
    fixture.open<vexa::frmAttachment>([&](vexa::frmAttachment& large) {
        large.sstAttachments.setCurrent(1);
        storeExtensions(fixture, 500);
        fixture.open<vexa::frmAttachment>([&](vexa::frmAttachment& small) {
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
    Fixture fixture;
    bool met = bench::measure({"opening the search settings", 1.3,
                               [&] {
                                   fixture.open<vexa::frmSettings>([](vexa::frmSettings&) {},
                                                                   vexa::frmSettings::ReportOpener());
                               },
                               [&] { openBare(fixture, IDD_frmSettings); }, 31, 2});
    met &= bench::measure({"opening the attachment settings", 1.3,
                           [&] { fixture.open<vexa::frmAttachment>([](vexa::frmAttachment&) {}); },
                           [&] { openBare(fixture, IDD_frmAttachment); }, 31, 2});
    met &= measureMoving(fixture);
    return met ? 0 : 1;
}
