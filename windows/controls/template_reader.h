// What a dialog template says of a control and the control itself no longer knows.
#pragma once

#include <windows.h>

namespace win {

/// The resource number that an extended dialog template gives a control as its title (an icon); 0 where the
/// title is a text or the template has no such control.
[[nodiscard]] int titleResource(HINSTANCE module, int templateIdentifier, int controlIdentifier);

/// Whether a control of the template has this window class.
[[nodiscard]] bool usesClass(HINSTANCE module, int templateIdentifier, const wchar_t* windowClass);

}  // namespace win
