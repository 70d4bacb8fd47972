// What tests ask of the windows inside a window.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace tests {

/// The controls of a dialog, in their order, without the parts of controls.
inline std::vector<HWND> controlsOf(HWND dialog) {
    std::vector<HWND> all;
    for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
        all.push_back(child);
    return all;
}

inline std::wstring classOf(HWND window) {
    wchar_t name[64] = L"";
    GetClassNameW(window, name, 64);
    return name;
}

inline std::wstring windowTextOf(HWND window) {
    wchar_t text[300] = L"";
    GetWindowTextW(window, text, 300);
    return text;
}

}  // namespace tests
