// What a library asks of the system, answered by somebody else.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace workbench {

struct Replacement {
    std::string name;
    void* function;
};

/// From now on the library calls these in place of the system's functions of their names. Does nothing
/// without a library.
void replaceImports(HMODULE library, const std::vector<Replacement>& replacements);

}  // namespace workbench
