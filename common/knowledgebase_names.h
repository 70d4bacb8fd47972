// The list of knowledgebases as the add-in keeps it below the profile key.
#pragma once

#include "common/application.h"

namespace vexa {

/// What stands for the empty name where one is chosen.
inline constexpr const wchar_t* NO_KNOWLEDGEBASE = L"<None>";

/// `ProjectCount` as stored, held between 0 and 100,000: a broken value must not hang the host.
[[nodiscard]] std::int32_t knowledgebaseCount(Application& application);

/// `Project<index>`, counted from 1.
[[nodiscard]] std::wstring knowledgebaseName(Application& application, std::int32_t index,
                                             const std::wstring& defaultName);

}  // namespace vexa
