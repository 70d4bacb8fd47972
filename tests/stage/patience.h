// How exact the stage's time is.
#pragma once

namespace tests {

/// As many of its intervals may pass until a timer has had its effect: just one on the headless back end,
/// whose clock is the test's; more in real windows, whose timers come late on a loaded machine.
[[nodiscard]] int intervalsToWait();

}  // namespace tests
