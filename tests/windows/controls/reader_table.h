// The table of what screen readers are told of a window's controls.
#pragma once

#include <windows.h>

#include "tests/windows/controls/annotations_stand_in.h"

namespace tests {

/// Prints a row for every control that can have the focus, whichever tab it is on: window, class, role, name,
/// description, value, state. None may be without a name, and no two may be told alike.
void expectEachNamed(const char* windowName, HWND window, const AnnotationsStandIn& annotations);

}  // namespace tests
