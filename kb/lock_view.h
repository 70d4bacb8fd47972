// What the user sees of the knowledgebase dialog's lock, and where the focus is meanwhile.
#pragma once

#include <string>

#include "kb/row_commands.h"
#include "kb/status_line.h"
#include "ui/controls.h"
#include "ui/grid.h"

namespace vexa {

class LockView {
public:
    LockView(ui::Grid& rows, RowCommands& commands, ui::Button& cmdBaseFolder, ui::Button& cmdApply,
             StatusLine& status);

    /// Greys the rows, disables the buttons and says `what` goes on. The focus of the button that was pressed
    /// goes to the list, which stays enabled.
    void lock(const std::wstring& what);
    /// Gives the rows, their focus and the base folder back. Which commands are enabled is not said here.
    void unlock();
    /// The focus leaves the buttons, until the dialog unlocks.
    void takeFocusAway();

private:
    void giveFocusBack();

    ui::Grid& rows_;
    RowCommands& commands_;
    ui::Button& cmdBaseFolder_;
    ui::Button& cmdApply_;
    StatusLine& status_;
    /// The command's button that had the focus; null where another control had it.
    ui::Button* pressed_ = nullptr;
};

}  // namespace vexa
