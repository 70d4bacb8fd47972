#include "bench/ratio.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

namespace bench {
namespace {

double seconds(const std::function<void()>& deed, int repetitions, const std::function<void()>& before = {}) {
    using Clock = std::chrono::steady_clock;
    if (before) before();
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
        deed.push_back(seconds(pair.deed, pair.repetitions, pair.beforeDeed));
        bare.push_back(seconds(pair.bare, pair.repetitions, pair.beforeBare));
        ratios.push_back(deed.back() / bare.back());
    }
    const bool met = report(pair.name, quantile(ratios, 0.5), pair.goal);
    std::printf("   (quartiles %.3f to %.3f; %.1f us against %.1f us, %d pairs)\n", quantile(ratios, 0.25),
                quantile(ratios, 0.75), quantile(deed, 0.5) * 1e6, quantile(bare, 0.5) * 1e6, pair.rounds);
    std::fflush(stdout);
    return met;
}

bool measureGrowth(const std::string& name, double goal, int small, int large,
                   const std::function<std::function<void()>(int size)>& prepare) {
    constexpr int ROUNDS = 5;
    const auto timeOf = [&](int size) {
        const auto deed = prepare(size);
        deed();
        return seconds(deed, 1);
    };
    std::vector<double> smallTimes;
    std::vector<double> largeTimes;
    std::vector<double> ratios;
    for (int round = 0; round < ROUNDS; ++round) {
        smallTimes.push_back(timeOf(small));
        largeTimes.push_back(timeOf(large));
        ratios.push_back(largeTimes.back() / smallTimes.back());
    }
    const bool met = report(name, quantile(ratios, 0.5), goal);
    std::printf("   (quartiles %.3f to %.3f; %d: %.2f ms, %d: %.2f ms)\n", quantile(ratios, 0.25),
                quantile(ratios, 0.75), small, quantile(smallTimes, 0.5) * 1e3, large,
                quantile(largeTimes, 0.5) * 1e3);
    std::fflush(stdout);
    return met;
}

}  // namespace bench
