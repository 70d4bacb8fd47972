// Failures of the add-in as the program's own errors.
#pragma once

#include <windows.h>

#include <oleauto.h>

namespace win {

/// Throws vexa::Error where `code` is a failure: with the description that the last failing call of this
/// thread left as error information, which is consumed, else with the system's text for the code.
void throwIfFailed(HRESULT code);

/// Runs one call of the add-in: forgets error information of earlier calls first, and throws vexa::Error
/// where the call fails.
template <class Call>
void callAddIn(Call call) {
    SetErrorInfo(0, nullptr);
    throwIfFailed(call());
}

}  // namespace win
