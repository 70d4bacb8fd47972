// The registry as the add-in uses it: texts and numbers below HKEY_CURRENT_USER. What cannot be read is the
// default; what cannot be written is left.
#pragma once

#include <windows.h>

#include <string>

namespace workbench::store {

[[nodiscard]] std::wstring readText(const std::wstring& key, const std::wstring& name,
                                    const std::wstring& defaultText = {});
[[nodiscard]] DWORD readNumber(const std::wstring& key, const std::wstring& name, DWORD defaultNumber = 0);
void writeText(const std::wstring& key, const std::wstring& name, const std::wstring& text);
void writeNumber(const std::wstring& key, const std::wstring& name, DWORD number);
void removeValue(const std::wstring& key, const std::wstring& name);

void createKey(const std::wstring& key);
void removeKey(const std::wstring& key);
/// With everything below it; a key of the new name is replaced.
void renameKey(const std::wstring& oldKey, const std::wstring& newKey);

/// The key of the profile in use.
[[nodiscard]] std::wstring profileKey();

/// The settings as text: one line for each value below the root key, "<key>\<value> = <content>".
[[nodiscard]] std::wstring dump();

}  // namespace workbench::store
