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
};

/// Times both sides in turn after one warm-up and prints the median ratio with its quartiles, the median
/// times per call and the goal. Returns whether the goal is met.
bool measure(const Pair& pair);

/// Prints how the time of `deed(size)` grows from `small` to `large`, as a ratio, against `goal`.
bool measureGrowth(const std::string& name, double goal, int small, int large,
                   const std::function<std::function<void()>(int size)>& prepare);

/// Median seconds of one call.
double medianSeconds(const std::function<void()>& deed, int rounds, int repetitions);

}  // namespace bench
