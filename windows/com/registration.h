// Registration of the class ctlPPE: one table of registry values, for the machine or for one user.
#pragma once

#include <windows.h>

namespace com {

/// Writes the rows below "Software\Classes" of `hive` (HKEY_LOCAL_MACHINE or HKEY_CURRENT_USER). Where a row
/// cannot be written, those before it are taken back and the result is SELFREG_E_CLASS.
[[nodiscard]] HRESULT registerClass(HKEY hive) noexcept;

/// Removes this class's own keys; foreign ones, and the type library's entry for the other bitness, stay.
/// S_OK also where nothing was registered.
[[nodiscard]] HRESULT unregisterClass(HKEY hive) noexcept;

}  // namespace com
