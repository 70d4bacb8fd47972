// Where the page comes from: its registered class, or a component's file without registration.
#pragma once

#include <string>

#include "interfaces/com.h"

namespace workbench {

/// A new instance of the registered page, or, with a file, of the control class in that file. Empty where it
/// cannot be had; `reason` then says why.
[[nodiscard]] com::Ptr<IUnknown> createPage(const std::wstring& file, std::wstring& reason);

/// The library that makes the page, before it makes one; null where there is none. `file` as above.
[[nodiscard]] HMODULE loadPage(const std::wstring& file);

}  // namespace workbench
