// The events of this thread that wait at one moment.
#pragma once

#include <windows.h>

#include <functional>
#include <set>
#include <utility>

namespace win {

/// Dispatches what waits when it is made: posted messages, input, windows to paint, timers, in the system's
/// own order. What its handlers bring up stays in the queue: a timer whose handler takes as long as its
/// interval is due again at once, and a loop until nothing is pending would never end. The end of the thread
/// (WM_QUIT) stays, too, for the host's own loop.
class PendingEvents {
public:
    PendingEvents();
    void run();

private:
    using Known = std::set<std::pair<HWND, WPARAM>>;

    /// Each returns whether there is more to do; false where the thread is to end.
    bool runPosted();
    bool runInput();
    /// Dispatches messages of one kind, one for each window and `wParam`.
    bool runEachOnce(UINT kind);
    /// Leaves the message in the queue; false where there is none or the thread is to end.
    bool look(MSG& message, UINT kind, UINT queue);
    [[nodiscard]] bool isLater(const MSG& message) const;

    DWORD begin_;
    unsigned mark_;
    bool ending_ = false;
};

}  // namespace win
