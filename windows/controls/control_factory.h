// The wrapper for each kind of control.
#pragma once

#include <windows.h>

#include <memory>

#include "windows/controls/control_base.h"

namespace win {

/// Throws std::logic_error for a kind that has no wrapper.
[[nodiscard]] std::unique_ptr<ControlBase> makeControl(ui::Kind kind, Window& window, HWND control);

}  // namespace win
