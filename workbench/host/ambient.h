// The ambient properties that the dialog offers to its pages.
#pragma once

#include <windows.h>

#include <oaidl.h>

namespace workbench {

/// The page's name in its container.
inline constexpr const wchar_t* PAGE_NAME = L"ctlPPE1";

/// DISP_E_MEMBERNOTFOUND where the dialog has no such property.
HRESULT ambientProperty(DISPID property, VARIANT& result);

}  // namespace workbench
