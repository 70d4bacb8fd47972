// What the control calls, what makes it call, and what a host may do inside: the rows and columns of the
// matrix.
#pragma once

#include "tests/windows/matrix/hostile_world.h"

namespace tests {

/// Places among the situations.
enum Place : std::size_t {
    NOTHING_OPEN,
    HIGHLIGHTS,
    COLOUR_CHOOSER,
    SEARCH_SETTINGS,
    ATTACHMENT_SETTINGS,
    REPORT,
    KNOWLEDGEBASES,
    NEW_NAME,
    OTHER_NAME,
    QUESTION,
    AUTO_UPDATE_CHOOSER,
    BASE_FOLDER,
    NEW_FOLDER,
};

/// The places that stand for all.
inline const std::vector<Place> STANDARD = {NOTHING_OPEN, HIGHLIGHTS};

/// One outgoing call of the control.
struct Call {
    const char* name;
    /// Makes the control ready for it, before anything is open; may be empty.
    std::function<void(HostileWorld&)> ready;
    /// Makes the control call, where it is there by then. What is open is closed afterwards.
    std::function<void(HostileWorld&)> provoke;
    /// Where it comes for sure. In others it may.
    std::vector<Place> where = STANDARD;
    /// Where it cannot: what makes the control ready for it stands in the way of the situation.
    std::vector<Place> prevents = {};
};

/// One thing that a host does inside a call.
struct Reaction {
    const char* name;
    std::function<void(HostileWorld&)> react;
};

[[nodiscard]] const std::vector<Situation>& situations();
/// Those whose dialogs are made from templates of the program.
[[nodiscard]] std::vector<Situation> ownDialogs();
/// A situation's name as that of a test.
[[nodiscard]] std::string situationName(const testing::TestParamInfo<Situation>& situation);
[[nodiscard]] const std::vector<Call>& calls();
[[nodiscard]] const std::vector<Reaction>& reactions();

}  // namespace tests
