#include "kb/process_lock.h"

#include <utility>

#include "common/addin_contract.h"
#include "common/guarded.h"
#include "kb/form_name.h"

namespace vexa {
namespace {

constexpr int LOCK_INTERVAL = 500;  // milliseconds

}  // namespace

ProcessLock::ProcessLock(Application& application, ui::Window& window, ui::Grid& rows, RowCommands& commands)
    : application_(application),
      window_(window),
      rows_(rows),
      commands_(commands),
      tmrLock_(window.createTimer()) {}

// --- Locking ----------------------------------------------------------------------------------------------

void ProcessLock::LockForm(bool bAutoUpdate, bool bNoWrite) {
    guarded(application_, FORM_NAME, L"LockForm", [&] {
        begin(bAutoUpdate, bNoWrite);
        application_.DoEvents();
        if (lock_) complete();  // else what had been running has ended meanwhile
    });
}

void ProcessLock::begin(bool bAutoUpdate, bool bNoWrite) {
    if (!lock_) lock_ = Lock{};
    if (!bNoWrite)
        application_.writeInteger(application_.ProfileKey, valueName::KBProcessState,
                                  bAutoUpdate ? processState::autoUpdate : processState::command);
    rows_.setAllRowsEnabled(false);
    commands_.setAll(false);
}

void ProcessLock::complete() {
    commands_.setAll(false);  // another row may have become the current one while events ran
    lock_->isComplete = true;
    startTimer();
}

bool ProcessLock::run(bool letEventsRun, const std::wstring& removing,
                      const std::function<bool()>& handOver) {
    bool accepted = false;
    attempt([&] {
        lockForCommand(letEventsRun, removing);
        accepted = handOver();
    });
    if (accepted) return true;
    clearState();
    if (window_.isOpen()) commands_.restore();
    unlock();
    return false;
}

/// Whatever ends while events run, the dialog is locked for the command afterwards.
void ProcessLock::lockForCommand(bool letEventsRun, const std::wstring& removing) {
    lock_ = Lock{removing};
    LockForm(false, false);
    if (letEventsRun) application_.DoEvents();
    if (!locked()) {
        begin(false, false);
        complete();
    }
    lock_->removing = removing;  // the end of something else, met while events ran, is not the end of this
}

void ProcessLock::startTimer() {
    if (!window_.isOpen()) return;
    tmrLock_->setInterval(LOCK_INTERVAL);
    tmrLock_->setEnabled(true);
}

void ProcessLock::stopTimer() {
    tmrLock_->setInterval(0);
    tmrLock_->setEnabled(false);
}

// --- The end of processing --------------------------------------------------------------------------------

std::int32_t ProcessLock::storedState() {
    return application_.readInteger(application_.ProfileKey, valueName::KBProcessState,
                                    processState::autoUpdate);
}

void ProcessLock::clearState() {
    stopTimer();
    application_.deleteValue(application_.ProfileKey, valueName::KBProcessState);
}

void ProcessLock::forgetRemoval() {
    if (lock_) lock_->removing.clear();
}

void ProcessLock::endRemoval(const std::wstring& project) {
    const std::wstring removed = lock_ ? std::exchange(lock_->removing, {}) : std::wstring();
    if (removed.empty() || project != removed) return;
    const std::int32_t searchWindow = application_.readInteger(RootKey, valueName::hWndSearchCtl, 0);
    if (searchWindow != 0)
        application_.platform.desktop.sendMessage(searchWindow, searchMessage::keyDown,
                                                  searchMessage::knowledgebaseGone, 0);
}

void ProcessLock::unlock() noexcept {
    lock_.reset();
    attempt([&] { rows_.setAllRowsEnabled(true); });
}

}  // namespace vexa
