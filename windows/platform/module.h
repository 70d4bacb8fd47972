// The module that this code runs in: the control's library, or a test program.
#pragma once

#include <windows.h>

#include <string>

namespace win {

[[nodiscard]] HMODULE thisModule();
/// The full path of a module's file.
[[nodiscard]] std::wstring modulePath(HMODULE module);
/// Without the final backslash.
[[nodiscard]] std::wstring folderOf(const std::wstring& path);

}  // namespace win
