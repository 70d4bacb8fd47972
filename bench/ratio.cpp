#include "bench/ratio.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

namespace bench {
namespace {

double seconds(const std::function<void()>& deed, int repetitions) {
    using Clock = std::chrono::steady_clock;
    const auto begin = Clock::now();
    for (int repetition = 0; repetition < repetitions; ++repetition) deed();
    return std::chrono::duration<double>(Clock::now() - begin).count() / repetitions;
}

double quantile(std::vector<double> values, double share) {
    std::ranges::sort(values);
    return values[static_cast<std::size_t>(share * static_cast<double>(values.size() - 1) + 0.5)];
}

bool report(const std::string& name, double ratio, double goal) {
    const bool met = ratio <= goal;
    std::printf("%-52s %7.3f   goal %6.3f   %s", name.c_str(), ratio, goal, met ? "met" : "MISSED");
    return met;
}

}  // namespace

bool measure(const Pair& pair) {
    pair.deed();
    pair.bare();
    std::vector<double> deed;
    std::vector<double> bare;
    std::vector<double> ratios;
    for (int round = 0; round < pair.rounds; ++round) {
        deed.push_back(seconds(pair.deed, pair.repetitions));
        bare.push_back(seconds(pair.bare, pair.repetitions));
        ratios.push_back(deed.back() / bare.back());
    }
    const bool met = report(pair.name, quantile(ratios, 0.5), pair.goal);
    std::printf("   (quartiles %.3f to %.3f; %.1f us against %.1f us, %d pairs)\n", quantile(ratios, 0.25),
                quantile(ratios, 0.75), quantile(deed, 0.5) * 1e6, quantile(bare, 0.5) * 1e6, pair.rounds);
    std::fflush(stdout);
    return met;
}

double medianSeconds(const std::function<void()>& deed, int rounds, int repetitions) {
    deed();
    std::vector<double> times;
    for (int round = 0; round < rounds; ++round) times.push_back(seconds(deed, repetitions));
    return quantile(times, 0.5);
}

bool measureGrowth(const std::string& name, double goal, int small, int large,
                   const std::function<std::function<void()>(int size)>& prepare) {
    const auto smallDeed = prepare(small);
    const double smallTime = medianSeconds(smallDeed, 11, 1);
    const auto largeDeed = prepare(large);
    const double largeTime = medianSeconds(largeDeed, 11, 1);
    const bool met = report(name, largeTime / smallTime, goal);
    std::printf("   (%d: %.2f ms, %d: %.2f ms)\n", small, smallTime * 1e3, large, largeTime * 1e3);
    std::fflush(stdout);
    return met;
}

}  // namespace bench
