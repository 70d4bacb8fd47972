// What tests ask of windows.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace tests {

inline std::wstring classOf(HWND window) {
    wchar_t name[64] = L"";
    GetClassNameW(window, name, 64);
    return name;
}

inline std::wstring windowTextOf(HWND window) {
    wchar_t text[4000] = L"";
    GetWindowTextW(window, text, 4000);
    return text;
}

/// On the screen.
inline RECT placeOf(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return place;
}

/// The window's own pixels, without its frame.
inline RECT innerAreaOf(HWND window) {
    RECT area{};
    GetClientRect(window, &area);
    return area;
}

/// A window of one of the system's classes, in the upper left corner.
inline HWND makeWindow(const wchar_t* windowClass, DWORD style, SIZE size = {1, 1}, HWND parent = nullptr) {
    return CreateWindowExW(0, windowClass, L"", style, 0, 0, size.cx, size.cy, parent, nullptr, nullptr,
                           nullptr);
}

/// For the system's enumerations: notes each window in a list.
inline BOOL CALLBACK noteWindow(HWND found, LPARAM list) noexcept {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(found);
    return TRUE;
}

/// The top-level windows of this thread, from the front to the back.
inline std::vector<HWND> threadWindows() {
    std::vector<HWND> all;
    EnumThreadWindows(GetCurrentThreadId(), noteWindow, reinterpret_cast<LPARAM>(&all));
    return all;
}

/// The dialogs and questions of this thread that are open, the innermost last.
inline std::vector<HWND> openDialogs() {
    std::vector<HWND> open;
    for (const HWND each : threadWindows())
        if (IsWindowVisible(each) && GetWindow(each, GW_OWNER) != nullptr && classOf(each) == L"#32770")
            open.insert(open.begin(), each);
    return open;
}

/// All windows inside a window, parts of controls included.
inline std::vector<HWND> descendantsOf(HWND window) {
    std::vector<HWND> all;
    EnumChildWindows(window, noteWindow, reinterpret_cast<LPARAM>(&all));
    return all;
}

/// The controls of a dialog, in their order, without the parts of controls.
inline std::vector<HWND> controlsOf(HWND dialog) {
    std::vector<HWND> all;
    for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
        all.push_back(child);
    return all;
}

}  // namespace tests
