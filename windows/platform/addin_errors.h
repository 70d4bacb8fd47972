// Failures of the add-in as the program's own errors.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string>

namespace win {

/// The description that the last failing call of this thread left as error information, else the system's
/// text for the code. The information is consumed.
[[nodiscard]] std::wstring failureDescription(HRESULT code);

/// Throws vexa::Error where `code` is a failure.
void throwIfFailed(HRESULT code);

/// Runs one call of the add-in: forgets error information of earlier calls first, and throws vexa::Error
/// where the call fails.
template <class Call>
void callAddIn(Call call) {
    SetErrorInfo(0, nullptr);
    throwIfFailed(call());
}

}  // namespace win
