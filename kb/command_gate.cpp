#include "kb/command_gate.h"

#include "common/guarded.h"
#include "kb/messages.h"

namespace vexa {

CommandGate::CommandGate(Application& application, ui::Window& window, const KnowledgebaseList& list,
                         Naming& naming, const ProcessLock& lock)
    : application_(application),
      window_(window),
      list_(list),
      naming_(naming),
      lock_(lock),
      addIn_(application.addIn) {}

void CommandGate::begin(const std::function<void()>& body) noexcept {
    if (!naming_.finishEdit() || lock_.locked() || running_) return;
    const Raised running(running_);
    attempt(body);
}

void CommandGate::command(const std::function<void()>& body) noexcept {
    begin([&] {
        if (addInIsFree()) body();
    });
}

void CommandGate::commandOn(int row, const std::function<void(int row)>& body) noexcept {
    attempt([&] {
        const std::wstring name = list_.nameOf(row);
        // Asking the add-in may let events run that move the rows: the name says which one was meant.
        command([&] {
            const int meant = list_.stillAt(row, name);
            if (meant != -1) body(meant);
        });
    });
}

bool CommandGate::addInIsFree() {
    if (!addIn_) return false;
    const bool isBusy = addIn_->IsAutoUpdateRunning();
    if (!isBusy) return !lock_.locked() && window_.isOpen();
    application_.screen.showMessage(&window_, message::autoUpdateRuns());
    return false;
}

}  // namespace vexa
