// The buttons of the composer's toolbars and the colours of its "Forecolor" menu.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "ui/toolbar.h"

namespace vexa {

/// Indices of the formatting toolbar's buttons; those in between are separators.
namespace propertyButton {
constexpr int highImportance = 1;
constexpr int lowImportance = 2;
constexpr int fontname = 4;
constexpr int fontsize = 6;
constexpr int forecolor = 8;
constexpr int bold = 10;
constexpr int italic = 11;
constexpr int underline = 12;
constexpr int leftAlign = 14;
constexpr int center = 15;
constexpr int rightAlign = 16;
constexpr int bulletIndent = 17;
constexpr int numeration = 18;
constexpr int decreaseIndent = 19;
constexpr int increaseIndent = 20;
}  // namespace propertyButton

/// Index of the one button of the send toolbar.
constexpr int SEND_BUTTON = 1;

[[nodiscard]] std::vector<ui::ToolbarButton> sendButtons();
[[nodiscard]] std::vector<ui::ToolbarButton> propertyButtons();

/// The colour of the menu entry with this key; nothing where no entry has it.
[[nodiscard]] std::optional<ui::Colour> menuColour(const std::wstring& key);

}  // namespace vexa
