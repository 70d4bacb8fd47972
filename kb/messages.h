// What the knowledgebase dialogs say and ask.
#pragma once

#include <cstdint>
#include <string>

#include "common/addin_contract.h"
#include "ui/window.h"

namespace vexa::message {

// The list of knowledgebases.
[[nodiscard]] ui::Message autoUpdateRuns();
[[nodiscard]] ui::Message nameMissing();
[[nodiscard]] ui::Message nameForbidden();
[[nodiscard]] ui::Message nameExists(const std::wstring& name);
/// A question that Enter answers by No.
[[nodiscard]] ui::Message removeKnowledgebase(const std::wstring& name, bool isAutoUpdate);
[[nodiscard]] ui::Message configureAutoUpdate(const std::wstring& name);

// Its status line.
/// The command of this event is being carried out.
[[nodiscard]] std::wstring commandRuns(KBEvent event, const std::wstring& name);
/// The add-in works, nobody knows on what.
[[nodiscard]] std::wstring somethingRuns();
[[nodiscard]] std::wstring fillRuns(std::int32_t rows, std::int32_t count);
[[nodiscard]] std::wstring addInIsMissing();

// The base folder.
[[nodiscard]] ui::Message driveNotAvailable(const std::wstring& drive);
[[nodiscard]] ui::Message folderNotOpened(const std::wstring& why);
[[nodiscard]] ui::Message folderNotCreated(const std::wstring& name, const std::wstring& why);

}  // namespace vexa::message
