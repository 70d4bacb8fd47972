// The table of the settings in docs/settings.md, made from the catalogue.
#pragma once

#include <string>

namespace docs {

/// Markdown: one row for each setting, in the order in which they are read. Ends with a line end.
[[nodiscard]] std::string settingsTable();

/// The document with the table put in anew between its two marks. Throws std::runtime_error where a mark is
/// missing.
[[nodiscard]] std::string withSettingsTable(const std::string& document);

}  // namespace docs
