// A base folder that answers late, as a share far away does: questions of one library to the file system
// about paths below the base folder take their time.
#pragma once

#include <windows.h>

namespace workbench {

/// Every question then takes this long (0: as long as it takes). Holds for libraries that are slowed down.
void setBaseFolderTime(unsigned milliseconds);

/// Replaces what `library` imports to ask the file system. Once is enough, and it stays so.
void slowDownFilesOf(HMODULE library);

}  // namespace workbench
