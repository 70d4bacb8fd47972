#include "windows/com/runtime.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "common/CTimer.h"
#include "common/guarded.h"
#include "windows/com/boundary.h"
#include "windows/com/host_window.h"
#include "windows/com/page_host.h"
#include "windows/platform/locked.h"
#include "windows/platform/module.h"

namespace com {
namespace {

/// Not destroyed when the process ends: COM is gone by then, and with it the add-in that it refers to.
Runtime* runtime = nullptr;

/// The library may stay loaded after its runtime has gone, and start again.
std::optional<vexa::ProcessMemory> memory;

/// Of the two above, and of the runtime's list of pages: threads may make their first pages at the same time.
SRWLOCK runtimeLock = SRWLOCK_INIT;

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

Runtime& Runtime::enter(PageHost& page) {
    std::unique_ptr<Runtime> left;  // ends without the lock: its end runs foreign code
    const win::Locked locked(runtimeLock);
    const DWORD thread = GetCurrentThreadId();
    if (runtime != nullptr && runtime->thread_ != thread) {
        if (!runtime->pages_.empty()) throw Failure(RPC_E_WRONG_THREAD);
        left = takeOut();
    }
    if (runtime == nullptr) runtime = new Runtime;
    runtime->pages_.push_back(&page);
    return *runtime;
}

void Runtime::leave(PageHost& page) noexcept {
    const win::Locked locked(runtimeLock);
    std::erase(pages_, &page);
}

bool Runtime::shutDown() noexcept {
    std::unique_ptr<Runtime> ended;
    const win::Locked locked(runtimeLock);
    if (runtime == nullptr) return true;
    if (runtime->thread_ != GetCurrentThreadId()) return false;
    ended = takeOut();
    return true;
}

std::unique_ptr<Runtime> Runtime::takeOut() noexcept {
    vexa::attempt([] { memory = runtime->application_.remember(); });
    return std::unique_ptr<Runtime>(std::exchange(runtime, nullptr));
}

void Runtime::tellModal(bool runs) {
    // A container that is told may end any of the pages.
    const std::vector<PageHost*> pages = pages_;
    for (PageHost* page : pages)
        if (std::ranges::find(pages_, page) != pages_.end()) page->tellModal(runs);
}

}  // namespace com
