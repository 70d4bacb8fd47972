// A world that is slow and answers back, for random walks: calls take their time, or let events run, and the
// host closes what is open while they go on.
#pragma once

#include <string>
#include <vector>

#include "tests/stage/stage.h"
#include "tests/support/dice.h"

namespace tests {

class RestlessWorld {
public:
    RestlessWorld(Dice& dice, Stage& stage) : dice_(dice), stage_(stage) {}

    /// Plans what may happen during the walk's next step. Whatever was planned for the last one and has not
    /// happened is up to the walk (`CallLog::forgetFaults`).
    void stir() {
        CallLog& calls = stage_.calls();
        if (dice_.oneIn(10)) {
            calls.takes(dice_.pick(CALLS), 1 + dice_.roll(600));
            ++slow_;
        }
        if (dice_.oneIn(6))
            calls.during(dice_.pick(CALLS_WITH_EVENTS), [this] {
                stage_.user().wait(1 + dice_.roll(600));
                ++waits_;
            });
        if (dice_.oneIn(25)) hostClosesDuring(dice_.pick(CALLS));
    }
    /// The host closes what is open inside the next call that begins so.
    void hostClosesDuring(const std::string& call) {
        stage_.calls().during(call, [this] {
            stage_.closeDialogs();
            ++closings_;
        });
    }

    /// So often it did so.
    [[nodiscard]] int slowCalls() const { return slow_; }
    [[nodiscard]] int waits() const { return waits_; }
    [[nodiscard]] int closings() const { return closings_; }

private:
    inline static const std::vector<std::string> CALLS{
        "addin", "message", "doevents", "screen message", "registry", "registry set", "files", "site"};
    /// In which an add-in, a box or the system dispatches messages.
    inline static const std::vector<std::string> CALLS_WITH_EVENTS{"addin", "message", "doevents",
                                                                   "screen message"};

    Dice& dice_;
    Stage& stage_;
    int slow_ = 0;
    int waits_ = 0;
    int closings_ = 0;
};

}  // namespace tests
