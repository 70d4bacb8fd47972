// What the component shares between its pages: the program, its machine and its screen. Made with the first
// page; it outlives pages and goes when the library is about to be unloaded.
#pragma once

#include <windows.h>

#include <memory>
#include <vector>

#include "common/application.h"
#include "windows/controls/screen.h"
#include "windows/platform/addin.h"
#include "windows/platform/machine.h"

namespace com {

class PageHost;

class Runtime {
public:
    /// The one of the process, with a page more; on any thread. The program lives on the user-interface
    /// thread of its pages: throws Failure(RPC_E_WRONG_THREAD) where there are pages on another one.
    [[nodiscard]] static Runtime& enter(PageHost& page);
    /// The page has gone. On the page's thread.
    void leave(PageHost& page) noexcept;

    /// Releases everything, the add-in included; the next runtime recalls the settings record, the change
    /// flags and that the log has begun. False where that is not possible on this thread.
    [[nodiscard]] static bool shutDown() noexcept;

    [[nodiscard]] vexa::Application& application() { return application_; }
    [[nodiscard]] win::Screen& screen() { return screen_; }

private:
    friend std::default_delete<Runtime>;
    Runtime();
    ~Runtime();
    [[nodiscard]] static std::unique_ptr<Runtime> takeOut() noexcept;
    void tellModal(bool runs);

    DWORD thread_ = GetCurrentThreadId();
    win::AddInLocator addIns_;
    win::Machine machine_;
    win::Screen screen_;
    vexa::Application application_;
    /// Changed on the runtime's thread alone, and under the lock.
    std::vector<PageHost*> pages_;
};

}  // namespace com
