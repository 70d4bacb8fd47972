// Whether the set-up wizard may be offered.
#pragma once

#include "common/application.h"

namespace vexa {

/// True only while the add-in is idle, no command is being processed, and no knowledgebase has a file with
/// content yet.
[[nodiscard]] bool wizardAllowed(Application& application);

}  // namespace vexa
