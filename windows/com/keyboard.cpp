#include "windows/com/keyboard.h"

#include <algorithm>

namespace com {
namespace {

constexpr int MOST_CAPTION = 256;

/// 0 where the caption marks no letter.
wchar_t letterOf(HWND control) {
    wchar_t caption[MOST_CAPTION];
    const int length = GetWindowTextW(control, caption, MOST_CAPTION);
    for (int i = 0; i + 1 < length; ++i) {
        if (caption[i] != L'&') continue;
        ++i;  // "&&" is an ampersand
        if (caption[i] != L'&') return static_cast<wchar_t>(towupper(caption[i]));
    }
    return 0;
}

BOOL CALLBACK collect(HWND control, LPARAM keys) noexcept {
    try {
        if (const wchar_t letter = letterOf(control))
            reinterpret_cast<std::vector<AccessKey>*>(keys)->push_back({letter, control});
        return TRUE;
    } catch (...) {
        return FALSE;
    }
}

/// Not while a dialog is open, which disables the root, nor in a container that is dead to the user.
bool usable(const AccessKey& key) {
    for (HWND window = key.control; window != nullptr; window = GetAncestor(window, GA_PARENT))
        if (!IsWindowEnabled(window)) return false;
    return IsWindowVisible(key.control);
}

}  // namespace

std::vector<AccessKey> accessKeys(HWND page) {
    std::vector<AccessKey> keys;
    EnumChildWindows(page, collect, reinterpret_cast<LPARAM>(&keys));
    return keys;
}

bool pressAccessKey(HWND page, wchar_t letter) {
    for (const AccessKey& key : accessKeys(page)) {
        if (key.letter != towupper(letter) || !usable(key)) continue;
        SetFocus(key.control);
        SendMessageW(key.control, BM_CLICK, 0, 0);
        return true;
    }
    return false;
}

void AccessKeyTable::make(const std::vector<AccessKey>& keys) {
    std::vector<ACCEL> entries;
    for (const AccessKey& key : keys)
        entries.push_back(
            {FALT | FVIRTKEY, static_cast<WORD>(key.letter), static_cast<WORD>(GetDlgCtrlID(key.control))});
    clear();
    if (entries.empty()) return;
    handle_ = CreateAcceleratorTableW(entries.data(), static_cast<int>(entries.size()));
    if (handle_ != nullptr) size_ = static_cast<USHORT>(entries.size());
}

void AccessKeyTable::clear() {
    if (handle_ != nullptr) DestroyAcceleratorTable(handle_);
    handle_ = nullptr;
    size_ = 0;
}

bool isOutermostStop(HWND page, HWND control, bool backwards) {
    const HWND first = GetNextDlgTabItem(page, nullptr, FALSE);
    if (backwards) return control == first;
    return GetNextDlgTabItem(page, control, FALSE) == first;
}

void focusOutermostStop(HWND page) {
    const HWND first = GetNextDlgTabItem(page, nullptr, FALSE);
    const bool backwards = GetKeyState(VK_SHIFT) < 0;
    SetFocus(backwards ? GetNextDlgTabItem(page, first, TRUE) : first);
}

}  // namespace com
