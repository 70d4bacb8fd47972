// The lock of the knowledgebase dialog while the add-in works on a knowledgebase, and what is stored of it.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "common/addin_contract.h"
#include "common/application.h"
#include "kb/lock_view.h"
#include "kb/row_commands.h"
#include "ui/window.h"

namespace vexa {

class ProcessLock {
public:
    ProcessLock(Application& application, ui::Window& window, RowCommands& commands, LockView& view);

    /// bLocked. Not yet while the events run that come with the locking.
    [[nodiscard]] bool locked() const { return lock_ && lock_->isComplete; }

    /// Stores the state (unless `bNoWrite`: 1 for an auto-update, else 2), greys the rows, disables the
    /// commands and lets events run. What had been running may end in them: then the dialog is unlocked
    /// afterwards. It may close in them, too. The user reads `what` goes on.
    void LockForm(const std::wstring& what, bool bAutoUpdate, bool bNoWrite);
    /// Locks for a command on this knowledgebase and hands it over. Where that fails or returns false no end
    /// will come: the dialog unlocks, and this returns false.
    bool run(KBEvent event, const std::wstring& name, bool letEventsRun,
             const std::function<bool()>& handOver);

    // The end of processing.
    /// KBProcessState; 1 where there is none.
    [[nodiscard]] std::int32_t storedState();
    /// Takes the stored state away; no tick looks for another end.
    void clearState();
    /// Tells the search window where the knowledgebase that was being removed is this one; in either case the
    /// removal is over.
    void endRemoval(const std::wstring& project);
    void forgetRemoval();
    void unlock() noexcept;

    /// Ticks look for an end from now on.
    void startTimer();
    void stopTimer() { tmrLock_->stop(); }
    /// A tick while the timer runs.
    std::function<void()>& onTick() { return tmrLock_->onTimer; }

private:
    struct Lock {
        std::wstring removing;  ///< the knowledgebase that is being removed; empty is none
        bool isComplete = false;
    };
    void lockForCommand(KBEvent event, const std::wstring& name, bool letEventsRun);
    void begin(const std::wstring& what, bool bAutoUpdate, bool bNoWrite);
    void complete();

    Application& application_;
    ui::Window& window_;
    RowCommands& commands_;
    LockView& view_;
    std::unique_ptr<ui::Timer> tmrLock_;
    std::optional<Lock> lock_;
};

}  // namespace vexa
