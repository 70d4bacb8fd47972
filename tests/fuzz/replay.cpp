// Plays files on a fuzz target, without libFuzzer: each rule that one of them once broke, or comes near to,
// stays held.
//   fuzz_TARGET FOLDER    all files in the folder
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int count, char** arguments) {
    if (count != 2) return 2;
    int played = 0;
    for (const auto& entry : std::filesystem::directory_iterator(arguments[1])) {
        std::ifstream stream(entry.path(), std::ios::binary);
        const std::vector<char> bytes((std::istreambuf_iterator<char>(stream)), {});
        std::printf("%s\n", entry.path().filename().c_str());
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
        ++played;
    }
    std::printf("%d inputs\n", played);
    return played > 0 ? 0 : 1;
}
