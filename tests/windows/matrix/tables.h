// What the control calls, what makes it call, and what a host may do inside: the rows and columns of the
// matrix.
#pragma once

#include "tests/windows/matrix/hostile_world.h"

namespace tests {

/// One outgoing call of the control.
struct Call {
    const char* name;
    /// Makes the control ready for it, before anything is open; may be empty.
    std::function<void(HostileWorld&)> ready;
    /// Makes the control call, where it is there by then. What is open is closed afterwards.
    std::function<void(HostileWorld&)> provoke;
    /// The dialog that stands for all of them, by its place among the situations.
    std::size_t dialog = 1;
};

/// One thing that a host does inside a call.
struct Reaction {
    const char* name;
    std::function<void(HostileWorld&)> react;
};

[[nodiscard]] const std::vector<Situation>& situations();
[[nodiscard]] const std::vector<Call>& calls();
[[nodiscard]] const std::vector<Reaction>& reactions();

}  // namespace tests
