// The system calls that the product makes, and nothing else: what a benchmark's bare side is made of.
#pragma once

#include <windows.h>

#include <string>

namespace bench {

/// Where benchmarks keep their values; never the product's own key.
inline constexpr const char* BENCH_HIVE = "Software\\VexaPPE benchmarks";

/// Opens a key below HKEY_CURRENT_USER, asks a value's type and size, reads it, closes the key.
inline void bareRead(const char* key, const char* name) {
    HKEY opened = nullptr;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, key, 0, KEY_READ, &opened) != ERROR_SUCCESS) return;
    DWORD type = 0;
    DWORD size = 0;
    BYTE data[512];
    if (RegQueryValueExA(opened, name, nullptr, &type, nullptr, &size) == ERROR_SUCCESS &&
        size <= sizeof data)
        RegQueryValueExA(opened, name, nullptr, &type, data, &size);
    RegCloseKey(opened);
}

inline void bareWrite(const char* key, const char* name, DWORD type, const void* data, DWORD size) {
    HKEY opened = nullptr;
    if (RegCreateKeyExA(HKEY_CURRENT_USER, key, 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_READ | KEY_WRITE,
                        nullptr, &opened, nullptr) != ERROR_SUCCESS)
        return;
    RegSetValueExA(opened, name, 0, type, static_cast<const BYTE*>(data), size);
    RegCloseKey(opened);
}

inline void bareWriteNumber(const char* key, const char* name, DWORD number) {
    bareWrite(key, name, REG_DWORD, &number, sizeof number);
}

inline void bareWriteText(const char* key, const char* name, const std::string& text) {
    bareWrite(key, name, REG_SZ, text.c_str(), static_cast<DWORD>(text.size()) + 1);
}

/// Asks for the folder, opens the file for appending, writes, closes.
inline void bareAppend(const wchar_t* folder, const wchar_t* file, const void* data, DWORD size) {
    SYSTEMTIME now;
    GetLocalTime(&now);
    GetFileAttributesW(folder);
    const HANDLE opened = CreateFileW(file, FILE_APPEND_DATA, FILE_SHARE_READ, nullptr, OPEN_ALWAYS,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
    DWORD written = 0;
    WriteFile(opened, data, size, &written, nullptr);
    CloseHandle(opened);
}

/// Points HKEY_CURRENT_USER of this process at a key of its own, which goes away at the end.
class OwnHive {
public:
    OwnHive() {
        RegDeleteTreeA(HKEY_CURRENT_USER, BENCH_HIVE);
        RegCreateKeyExA(HKEY_CURRENT_USER, BENCH_HIVE, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key_,
                        nullptr);
        RegOverridePredefKey(HKEY_CURRENT_USER, key_);
    }
    OwnHive(const OwnHive&) = delete;
    OwnHive& operator=(const OwnHive&) = delete;
    ~OwnHive() {
        RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
        RegCloseKey(key_);
        RegDeleteTreeA(HKEY_CURRENT_USER, BENCH_HIVE);
    }

private:
    HKEY key_ = nullptr;
};

/// What a window's first messages make it do: painting, above all.
inline void handleMessages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

}  // namespace bench
