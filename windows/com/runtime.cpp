#include "windows/com/runtime.h"

#include <algorithm>
#include <optional>

#include "common/CTimer.h"
#include "common/guarded.h"
#include "windows/com/boundary.h"
#include "windows/com/host_window.h"
#include "windows/com/page_host.h"
#include "windows/platform/module.h"

namespace com {
namespace {

/// Not destroyed when the process ends: COM is gone by then, and with it the add-in that it refers to.
Runtime* runtime = nullptr;

/// The library may stay loaded after its runtime has gone, and start again.
std::optional<vexa::ProcessMemory> memory;

}  // namespace

Runtime::Runtime()
    : machine_(addIns_), screen_(win::thisModule()), application_(machine_.platform(), screen_) {
    screen_.onModalState = [this](bool runs) { tellModal(runs); };
    if (memory) application_.recall(*memory);
}

Runtime::~Runtime() {
    vexa::modTimer::stop(machine_.platform().timers);
    vexa::modTimer::clear();
    HostWindow::unregisterClass();
}

Runtime& Runtime::get() {
    if (runtime == nullptr) runtime = new Runtime;
    if (runtime->thread_ != GetCurrentThreadId()) throw Failure(RPC_E_WRONG_THREAD);
    return *runtime;
}

bool Runtime::shutDown() noexcept {
    if (runtime == nullptr) return true;
    if (runtime->thread_ != GetCurrentThreadId()) return false;
    vexa::attempt([] { memory = runtime->application_.remember(); });
    delete std::exchange(runtime, nullptr);
    return true;
}

void Runtime::tellModal(bool runs) {
    // A container that is told may end any of the pages.
    const std::vector<PageHost*> pages = pages_;
    for (PageHost* page : pages)
        if (std::ranges::find(pages_, page) != pages_.end()) page->tellModal(runs);
}

}  // namespace com
