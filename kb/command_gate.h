// What the user asks for in the knowledgebase dialog begins only while nothing else goes on.
#pragma once

#include <functional>

#include "common/application.h"
#include "common/raised.h"
#include "kb/knowledgebase_list.h"
#include "kb/naming.h"
#include "kb/process_lock.h"
#include "ui/window.h"

namespace vexa {

class CommandGate {
public:
    CommandGate(Application& application, ui::Window& window, const KnowledgebaseList& list, Naming& naming,
                const ProcessLock& lock);

    /// Runs the body, unless a name is refused, the dialog is locked or something else is running.
    void begin(const std::function<void()>& body) noexcept;
    /// Runs a command's body where the add-in is free, too.
    void command(const std::function<void()>& body) noexcept;
    /// The same for the knowledgebase of a row, which may have moved when the body runs.
    void commandOn(int row, const std::function<void(int row)>& body) noexcept;
    /// Asks the add-in, which may let events run, and tells the user where it is not.
    [[nodiscard]] bool addInIsFree();
    /// Nothing begins while the result lives.
    [[nodiscard]] Raised close() { return Raised(running_); }

private:
    Application& application_;
    ui::Window& window_;
    const KnowledgebaseList& list_;
    Naming& naming_;
    const ProcessLock& lock_;
    /// The add-in that the dialog works with, whatever pages come and go meanwhile; null where none ran.
    std::shared_ptr<AddIn> addIn_;
    /// Something is running that may let events run.
    bool running_ = false;
};

}  // namespace vexa
