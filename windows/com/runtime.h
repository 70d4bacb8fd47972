// What the component shares between its pages: the program, its machine and its screen. Made with the first
// page; it outlives pages and goes when the library is about to be unloaded.
#pragma once

#include <windows.h>

#include <vector>

#include "common/application.h"
#include "windows/controls/screen.h"
#include "windows/platform/addin.h"
#include "windows/platform/machine.h"

namespace com {

class PageHost;

class Runtime {
public:
    /// The one of the process. Throws Failure(RPC_E_WRONG_THREAD) on another thread than the first page's:
    /// the program lives on one user-interface thread.
    [[nodiscard]] static Runtime& get();

    /// Releases everything, the add-in included; the next runtime recalls the settings record, the change
    /// flags and that the log has begun. False where that is not possible on this thread.
    [[nodiscard]] static bool shutDown() noexcept;

    [[nodiscard]] vexa::Application& application() { return application_; }
    [[nodiscard]] win::Screen& screen() { return screen_; }

    /// The pages that are told when dialogs run modally.
    void add(PageHost& page) { pages_.push_back(&page); }
    void remove(PageHost& page) { std::erase(pages_, &page); }

private:
    Runtime();
    ~Runtime();
    void tellModal(bool runs);

    DWORD thread_ = GetCurrentThreadId();
    win::AddInLocator addIns_;
    win::Machine machine_;
    win::Screen screen_;
    vexa::Application application_;
    std::vector<PageHost*> pages_;
};

}  // namespace com
