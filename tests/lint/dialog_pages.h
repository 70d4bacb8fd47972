// What the rules for dialog templates ask of a template: its kinds of control, their places, and what is seen
// together.
#pragma once

#include <functional>
#include <vector>

#include "tests/headless/dialog_template.h"

namespace headless {

[[nodiscard]] bool isFrame(const TemplateControl& control);
[[nodiscard]] bool isLabel(const TemplateControl& control);
[[nodiscard]] bool isTabStrip(const TemplateControl& control);
[[nodiscard]] bool isToolbar(const TemplateControl& control);
[[nodiscard]] bool isUpDown(const TemplateControl& control);
[[nodiscard]] bool isDecoration(const TemplateControl& control);

/// In dialog units. The height of a combo in a template is that of its open list; this is the closed box's.
[[nodiscard]] ui::Rect placeOf(const TemplateControl& control);

[[nodiscard]] bool isEmpty(const ui::Rect& place);
[[nodiscard]] bool overlap(const ui::Rect& one, const ui::Rect& other);
[[nodiscard]] bool contains(const ui::Rect& outer, const ui::Rect& inner);
[[nodiscard]] inline int rightOf(const ui::Rect& place) { return place.left + place.width; }
[[nodiscard]] inline int bottomOf(const ui::Rect& place) { return place.top + place.height; }

using Controls = std::vector<const TemplateControl*>;

/// What is seen together: all controls, or each page of a tab control along with what lies outside it. The
/// first page's controls are visible in the template, the others' are not.
[[nodiscard]] std::vector<Controls> pagesOf(const DialogTemplate& dialog);

/// The product's dialog with a flaw in it, planted at the control. Throws std::logic_error where there is no
/// such control.
[[nodiscard]] DialogTemplate flawed(
    const std::string& dialog, const std::string& control,
    const std::function<void(DialogTemplate& dialog, std::size_t control)>& plant);

}  // namespace headless
