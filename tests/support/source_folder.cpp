#include "tests/support/source_folder.h"

namespace tests {

std::string sourceFolder() { return SOURCE_FOLDER; }

}  // namespace tests
