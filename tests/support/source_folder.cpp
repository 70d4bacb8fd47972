#include "tests/support/source_folder.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

namespace tests {

std::string sourceFolder() { return SOURCE_FOLDER; }

std::string contentOf(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    if (!stream) throw std::runtime_error("cannot read " + path);
    return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace tests
