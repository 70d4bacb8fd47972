// Chance for random walks, from a seed that is printed so that a walk can be repeated.
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>

namespace tests {

/// The length of a walk: the number in the environment variable VEXA_STEPS, else `usual`.
[[nodiscard]] inline int walkLength(int usual) {
    const char* wanted = std::getenv("VEXA_STEPS");
    return wanted ? std::atoi(wanted) : usual;
}

class Dice {
public:
    /// The seed is the number in the environment variable VEXA_SEED, else another one in each run.
    explicit Dice(const char* walk) : seed_(chooseSeed()), numbers_(seed_) {
        std::printf("%s: VEXA_SEED=%u\n", walk, seed_);
    }

    /// 0 to `sides` - 1.
    [[nodiscard]] int roll(int sides) { return std::uniform_int_distribution<int>(0, sides - 1)(numbers_); }
    [[nodiscard]] bool oneIn(int sides) { return roll(sides) == 0; }

    template <class Container>
    [[nodiscard]] const auto& pick(const Container& from) {
        return from[static_cast<std::size_t>(roll(static_cast<int>(std::size(from))))];
    }

private:
    static std::uint32_t chooseSeed() {
        const char* wanted = std::getenv("VEXA_SEED");
        return wanted ? static_cast<std::uint32_t>(std::strtoul(wanted, nullptr, 10))
                      : std::random_device()();
    }

    std::uint32_t seed_;
    std::mt19937 numbers_;
};

}  // namespace tests
