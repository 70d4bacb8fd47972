// Benchmarks as ratios: a deed and its bare counterpart, timed in turn in one run, so that the machine's
// speed and noise cancel out.
#pragma once

#include <functional>
#include <string>

namespace bench {

struct Pair {
    std::string name;
    double goal;                 ///< the ratio that shall not be exceeded
    std::function<void()> deed;  ///< what the product does
    std::function<void()> bare;  ///< the same system calls and nothing else
    int rounds = 31;             ///< pairs that are timed
    int repetitions = 1;         ///< calls per timing, so that one takes at least some milliseconds
    // What each timing of a side starts from; not timed itself.
    std::function<void()> beforeDeed{};
    std::function<void()> beforeBare{};
};

/// Times both sides in turn after one warm-up and prints the median ratio with its quartiles, the median
/// times per call and the goal. Returns whether the goal is met.
bool measure(const Pair& pair);

/// Prints how the time of a deed grows from `small` to `large`, as a ratio, against `goal`. `prepare(size)`
/// makes the deed; it is called anew for each timing, for both sizes in turn, and its deed once untimed.
bool measureGrowth(const std::string& name, double goal, int small, int large,
                   const std::function<std::function<void()>(int size)>& prepare);

}  // namespace bench
