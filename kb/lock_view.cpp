#include "kb/lock_view.h"

#include <utility>

namespace vexa {

LockView::LockView(ui::Grid& rows, RowCommands& commands, ui::Button& cmdBaseFolder, ui::Button& cmdApply,
                   StatusLine& status)
    : rows_(rows), commands_(commands), cmdBaseFolder_(cmdBaseFolder), cmdApply_(cmdApply), status_(status) {}

void LockView::lock(const std::wstring& what) {
    rows_.setAllRowsEnabled(false);
    if (ui::Button* const focused = commands_.focused()) {
        pressed_ = focused;
        rows_.setFocus();  // a disabled button would leave the keyboard dead
    }
    commands_.setAll(false);
    cmdBaseFolder_.setEnabled(false);
    status_.say(what);
}

void LockView::unlock() {
    rows_.setAllRowsEnabled(true);
    cmdBaseFolder_.setEnabled(true);
    giveFocusBack();
    status_.sayNothingGoesOn();
}

void LockView::takeFocusAway() {
    cmdApply_.setVisible(true);
    cmdApply_.setFocus();
}

/// Only where the lock has put it: a focus that the user has moved on stays.
void LockView::giveFocusBack() {
    ui::Button* const pressed = std::exchange(pressed_, nullptr);
    const bool wasTaken = cmdApply_.hasFocus();
    if (pressed != nullptr && pressed->enabled() && (wasTaken || rows_.hasFocus()))
        pressed->setFocus();
    else if (wasTaken)
        rows_.setFocus();
    cmdApply_.setVisible(false);
}

}  // namespace vexa
