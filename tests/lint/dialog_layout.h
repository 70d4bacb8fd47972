// The usual rules of layout, measured on a dialog template: distances, alignment and equal sizes.
#pragma once

#include <string>
#include <vector>

#include "tests/headless/dialog_template.h"

namespace headless {

/// What breaks a rule, one line each, by the controls' names and in dialog units. Nothing for a page, whose
/// rows the program places.
[[nodiscard]] std::vector<std::string> layoutFindings(const DialogTemplate& dialog);

}  // namespace headless
