#include "kb/process_lock.h"

#include <utility>

#include "common/guarded.h"
#include "kb/form_name.h"
#include "kb/messages.h"

namespace vexa {
namespace {

constexpr int LOCK_INTERVAL = 500;  // milliseconds

}  // namespace

ProcessLock::ProcessLock(Application& application, ui::Window& window, RowCommands& commands, LockView& view)
    : application_(application),
      window_(window),
      commands_(commands),
      view_(view),
      tmrLock_(window.createTimer()) {}

// --- Locking ----------------------------------------------------------------------------------------------

void ProcessLock::LockForm(const std::wstring& what, bool bAutoUpdate, bool bNoWrite) {
    guarded(application_, FORM_NAME, L"LockForm", [&] {
        begin(what, bAutoUpdate, bNoWrite);
        application_.DoEvents();
        if (lock_) complete();  // else what had been running has ended meanwhile
    });
}

void ProcessLock::begin(const std::wstring& what, bool bAutoUpdate, bool bNoWrite) {
    if (!lock_) lock_ = Lock{};
    if (!bNoWrite)
        application_.writeInteger(application_.ProfileKey, valueName::KBProcessState,
                                  bAutoUpdate ? processState::autoUpdate : processState::command);
    view_.lock(what);
}

void ProcessLock::complete() {
    commands_.setAll(false);  // another row may have become the current one while events ran
    lock_->isComplete = true;
    startTimer();
}

bool ProcessLock::run(KBEvent event, const std::wstring& name, bool letEventsRun,
                      const std::function<bool()>& handOver) {
    bool accepted = false;
    attempt([&] {
        lockForCommand(event, name, letEventsRun);
        accepted = handOver();
    });
    if (accepted) return true;
    clearState();
    if (window_.isOpen()) commands_.restore();
    unlock();
    return false;
}

/// Whatever ends while events run, the dialog is locked for the command afterwards.
void ProcessLock::lockForCommand(KBEvent event, const std::wstring& name, bool letEventsRun) {
    const std::wstring what = message::commandRuns(event, name);
    const std::wstring removing = event == KBEvent::removed ? name : std::wstring();
    lock_ = Lock{removing};
    LockForm(what, false, false);
    if (letEventsRun) application_.DoEvents();
    if (!locked()) {
        begin(what, false, false);
        complete();
    }
    lock_->removing = removing;  // the end of something else, met while events ran, is not the end of this
}

void ProcessLock::startTimer() {
    if (window_.isOpen()) tmrLock_->start(LOCK_INTERVAL);
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
    attempt([&] { view_.unlock(); });
}

}  // namespace vexa
