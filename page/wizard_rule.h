// Whether the set-up wizard may be offered.
#pragma once

#include "common/application.h"

namespace vexa {

struct WizardAnswer {
    bool allowed = false;
    /// Knowledgebases whose names were read to come to a yes, which is what the rule's time goes to.
    std::int32_t knowledgebases = 0;
};

/// A yes only while the add-in is idle, no command is being processed, and no knowledgebase has a file with
/// content yet. Throws Error where the file system fails.
[[nodiscard]] WizardAnswer askWizardRule(Application& application);

}  // namespace vexa
