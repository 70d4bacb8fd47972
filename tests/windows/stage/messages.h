// The message loop of a test: what is pending runs when the test says so, and timers tick while it waits.
#pragma once

#include "tests/support/call_log.h"
#include "windows/platform/desktop.h"

namespace tests {

/// Dispatches everything that is pending but the ticks of timers.
void deliverMessages();

/// Likewise, but nothing is painted: what a user does faster than windows paint.
void deliverInput();

/// Dispatches everything that comes up for so many milliseconds.
void deliverFor(int milliseconds);

/// Pending events without the ticks of timers, as time passes in `User::wait` alone; with them where calls
/// take time.
class StageDesktop : public win::Desktop {
public:
    explicit StageDesktop(const CallLog& calls) : calls_(calls) {}
    void doEvents() override {
        if (calls_.timePasses()) return win::Desktop::doEvents();
        deliverMessages();
    }

private:
    const CallLog& calls_;
};

}  // namespace tests
