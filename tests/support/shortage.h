// Memory that runs out on demand, for the whole test program.
#pragma once

namespace tests {

/// How many allocations of this program succeed before they fail; below 0 all do.
extern long allocationsLeft;
/// Of those that would fail the first one alone does: memory is short for a moment.
extern bool shortageIsShort;

/// The next allocation fails, if it comes while this lives; those behind it succeed.
class MomentOfShortage {
public:
    MomentOfShortage() {
        shortageIsShort = true;
        allocationsLeft = 0;
    }
    MomentOfShortage(const MomentOfShortage&) = delete;
    MomentOfShortage& operator=(const MomentOfShortage&) = delete;
    ~MomentOfShortage() {
        shortageIsShort = false;
        allocationsLeft = -1;
    }
};

/// Ends a shortage for a scope: what stands in for others has memory while the control has none.
class Plenty {
public:
    Plenty() : saved_(allocationsLeft) { allocationsLeft = -1; }
    Plenty(const Plenty&) = delete;
    Plenty& operator=(const Plenty&) = delete;
    ~Plenty() { allocationsLeft = saved_; }

private:
    long saved_;
};

}  // namespace tests
