#include "windows/trace/shown.h"

#include <cstdio>

namespace trace {
namespace {

template <class... Numbers>
std::wstring formatted(const wchar_t* format, Numbers... numbers) {
    wchar_t text[200];
    std::swprintf(text, 200, format, numbers...);
    return text;
}

}  // namespace

std::wstring hex(unsigned long long number) { return formatted(L"0x%llX", number); }

std::wstring shown(const wchar_t* text) {
    return text == nullptr ? L"null" : L"\"" + std::wstring(text).substr(0, 100) + L"\"";
}

std::wstring shown(REFIID identifier) {
    wchar_t text[40];
    StringFromGUID2(identifier, text, 40);
    wchar_t name[100];
    DWORD size = sizeof name;
    const std::wstring key = std::wstring(L"Interface\\") + text;
    // The name that the system has for it, where it has one.
    if (RegGetValueW(HKEY_CLASSES_ROOT, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, name, &size) == 0)
        return name;
    return text;
}

std::wstring shown(const RECT* area) {
    if (area == nullptr) return L"null";
    return formatted(L"(%ld,%ld %ldx%ld)", area->left, area->top, area->right - area->left,
                     area->bottom - area->top);
}

std::wstring shown(const SIZE* size) {
    return size == nullptr ? L"null" : formatted(L"%ldx%ld", size->cx, size->cy);
}

std::wstring shown(const MSG* message) {
    if (message == nullptr) return L"null";
    return formatted(L"message 0x%X (0x%llX, 0x%llX)", message->message,
                     static_cast<unsigned long long>(message->wParam),
                     static_cast<unsigned long long>(message->lParam));
}

std::wstring shown(HWND window) {
    if (window == nullptr) return L"no window";
    wchar_t name[100] = L"";
    RECT area{};
    GetClassNameW(window, name, 100);
    GetWindowRect(window, &area);
    return L"window " + hex(reinterpret_cast<ULONG_PTR>(window)) + L" " + name + L" " + shown(&area);
}

std::wstring shown(const VARIANT* value) {
    if (value == nullptr) return L"null";
    if (value->vt == VT_BSTR) return shown(value->bstrVal);
    return L"variant of type " + std::to_wstring(value->vt);
}

}  // namespace trace
