// Registration of the class ctlPPE by its table, for the machine or for one user.
#pragma once

#include <windows.h>

namespace com {

/// Writes the rows below "Software\Classes" of `hive` (HKEY_LOCAL_MACHINE or HKEY_CURRENT_USER). Where a row
/// cannot be written, those before it are taken back and the result is SELFREG_E_CLASS.
[[nodiscard]] HRESULT registerClass(HKEY hive) noexcept;

/// Removes this class's own keys; foreign ones stay, and so does what the other bitness needs while it is
/// registered. S_OK also where nothing was registered.
[[nodiscard]] HRESULT unregisterClass(HKEY hive) noexcept;

/// S_OK where `hive` holds every row, for the file that this code runs in; else REGDB_E_CLASSNOTREG.
[[nodiscard]] HRESULT isClassRegistered(HKEY hive) noexcept;

}  // namespace com
