// Opening the program's dialogs on the real machine, and the bare creation of their templates beside it.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <utility>

#include "bench/add_ins.h"
#include "bench/bare_calls.h"
#include "common/application.h"
#include "settings/frmSettings.ids.h"
#include "ui/form.h"
#include "windows/controls/screen.h"
#include "windows/platform/machine.h"

namespace bench {

/// The program without an add-in, and a dialog that owns those which it opens.
class Dialogs {
public:
    Dialogs() {
        application.loadProfileKey();
        owner = screen.createDialog(IDD_frmSettings, nullptr);
    }

    /// Opens a dialog of the program, plays `script` once its first messages have been handled, closes it.
    template <class Dialog, class... More>
    void open(const std::function<void(Dialog&)>& script, More&&... more) {
        screen.onModal = [&](ui::Form& form) {
            handleMessages();
            script(dynamic_cast<Dialog&>(form));
            form.window().close();
        };
        Dialog(application, *owner, std::forward<More>(more)...).Show();
        screen.onModal = nullptr;
    }

    /// The same template made, shown, its first messages handled, and destroyed.
    void openBare(int identifier) const {
        const win::Activation themed(screen.context());
        const HWND parent = reinterpret_cast<HWND>(owner->handle());
        const HWND dialog =
            CreateDialogParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(identifier), parent, procedure, 0);
        EnableWindow(parent, FALSE);
        ShowWindow(dialog, SW_SHOW);
        SetForegroundWindow(dialog);
        handleMessages();
        EnableWindow(parent, TRUE);
        ShowWindow(dialog, SW_HIDE);
        DestroyWindow(dialog);
    }

private:
    static INT_PTR CALLBACK procedure(HWND, UINT message, WPARAM, LPARAM) noexcept {
        return message == WM_INITDIALOG;
    }

    Locator locator_;
    win::Machine machine_{locator_};

public:
    win::Screen screen{GetModuleHandleW(nullptr)};
    vexa::Application application{machine_.platform(), screen};
    std::unique_ptr<ui::Window> owner;
};

}  // namespace bench
