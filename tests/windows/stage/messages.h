// The message loop of a test: what is pending runs when the test says so, and timers tick while it waits.
#pragma once

#include "windows/platform/desktop.h"

namespace tests {

/// Dispatches everything that is pending but the ticks of timers.
void deliverMessages();

/// Dispatches everything that comes up for so many milliseconds.
void deliverFor(int milliseconds);

/// Pending events without the ticks of timers: time passes in `User::wait` alone.
class StageDesktop : public win::Desktop {
public:
    void doEvents() override { deliverMessages(); }
};

}  // namespace tests
