// Feeds a fuzz target without libFuzzer: the files that are given, or else random inputs.
//   fuzz_TARGET FILE ...      replays the files
//   fuzz_TARGET [--runs=N]    N random inputs from the printed seed (environment variable VEXA_SEED)
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "tests/support/dice.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

constexpr int USUAL_RUNS = 20'000;
constexpr int LONGEST_INPUT = 200;

void replay(const char* file) {
    std::ifstream stream(file, std::ios::binary);
    const std::vector<char> bytes((std::istreambuf_iterator<char>(stream)), {});
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

void runRandom(int runs) {
    tests::Dice dice("fuzz");
    for (int run = 0; run < runs; ++run) {
        std::vector<std::uint8_t> bytes(static_cast<std::size_t>(dice.roll(LONGEST_INPUT)));
        for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(dice.roll(256));
        LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
    }
    std::printf("%d inputs\n", runs);
}

}  // namespace

int main(int count, char** arguments) {
    const std::string option = count == 2 ? arguments[1] : "";
    if (count == 1) runRandom(USUAL_RUNS);
    if (option.starts_with("--runs=")) {
        runRandom(std::atoi(option.c_str() + 7));
        return 0;
    }
    for (int index = 1; index < count; ++index) replay(arguments[index]);
}
