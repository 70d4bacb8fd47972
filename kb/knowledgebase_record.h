// A knowledgebase as the add-in records it below the profile key. The dialogs only read these records.
#pragma once

#include <cstdint>
#include <string>

#include "common/application.h"

namespace vexa {

/// What is shown where nothing is known.
inline constexpr const wchar_t* UNKNOWN = L"-";
/// `KBLastUpdate` of a knowledgebase that was never updated.
inline constexpr const wchar_t* NEVER_UPDATED = L"-1";

struct KnowledgebaseRecord {
    std::wstring name;
    std::wstring KBLastUpdate = NEVER_UPDATED;  ///< decimal text of a date serial, or NEVER_UPDATED
    std::int32_t KBSize = -1;                   ///< bytes; -1 is unknown
    std::int32_t KBDocuments = -1;              ///< -1 is unknown
};

/// The key of a knowledgebase's own values.
[[nodiscard]] std::wstring knowledgebaseKey(const Application& application, const std::wstring& name);

[[nodiscard]] KnowledgebaseRecord readKnowledgebase(Application& application, const std::wstring& name);

/// `KBDocuments` as the buttons see it: 0 where it is missing.
[[nodiscard]] std::int32_t documentCount(Application& application, const std::wstring& name);

/// Whole units, halves to even: "1023 Byte", "2 KB", "1 MB".
[[nodiscard]] std::wstring sizeText(std::int32_t bytes);

/// Right-aligned to 8 characters; "-" where it is unknown.
[[nodiscard]] std::wstring documentsText(std::int32_t documents);

/// The last update as a date serial: a decimal text as a rule, else whatever the locale takes for a date.
/// Throws Error where it is neither.
[[nodiscard]] double lastUpdate(const KnowledgebaseRecord& record, Conversions& conversions);

}  // namespace vexa
