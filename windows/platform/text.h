// Text between the program's wide strings and the system's code page, of windows, and of system errors.
#pragma once

#include <windows.h>

#include <string>

namespace win {

/// Characters that the ANSI code page lacks become the system's default character.
[[nodiscard]] std::string toAnsi(const std::wstring& text);
[[nodiscard]] std::wstring fromAnsi(const std::string& bytes);
[[nodiscard]] std::wstring fromUtf8(const std::string& bytes);

[[nodiscard]] std::wstring windowText(HWND window);

/// The system's description of an error code, without line ends; "Error <code>" where it has none.
[[nodiscard]] std::wstring systemErrorText(DWORD code);

/// Throws vexa::Error with the description of GetLastError().
[[noreturn]] void throwLastError();

}  // namespace win
