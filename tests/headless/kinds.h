// Which kind of control a template's window class stands for, and the headless control of each kind.
#pragma once

#include <memory>
#include <optional>

#include "tests/headless/item.h"

namespace headless {

/// Nothing where the vocabulary has no such control.
[[nodiscard]] std::optional<ui::Kind> kindOf(const TemplateControl& source);

/// The control in memory. A class without a kind becomes an item that only takes up room.
[[nodiscard]] std::unique_ptr<Item> makeItem(Window& window, const TemplateControl& source);

}  // namespace headless
