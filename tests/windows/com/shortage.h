// Memory that runs out on demand, for the whole test program.
#pragma once

namespace tests {

/// How many allocations of this program succeed before they fail; below 0 all do.
extern long allocationsLeft;

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
