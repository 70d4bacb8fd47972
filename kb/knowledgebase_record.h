// A knowledgebase as the add-in records it below the profile key, and as the list shows it. The dialogs only
// read these records.
#pragma once

#include "common/application.h"
#include "ui/grid.h"

namespace vexa {

/// The columns of the list.
namespace column {
constexpr int name = 0;
constexpr int lastUpdate = 1;
constexpr int size = 2;
constexpr int documents = 3;
constexpr int count = 4;
}  // namespace column

/// What a cell shows where nothing is known.
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

/// A name's cell: sorted without regard to case.
[[nodiscard]] ui::GridCell nameCell(const std::wstring& name, Conversions& conversions);

/// The texts of the row and what they are sorted by: the date in seconds, the size in bytes. Throws Error
/// where `KBLastUpdate` is no date.
[[nodiscard]] ui::GridRow knowledgebaseRow(const KnowledgebaseRecord& record, Conversions& conversions);

}  // namespace vexa
