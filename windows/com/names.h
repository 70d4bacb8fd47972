// What the class ctlPPE is called and how it presents itself to containers. The packages read it, too: it
// knows nothing of Windows.
#pragma once

#include "common/product_names.h"

namespace com {

/// The title of the page's tab and the name that users see.
constexpr const wchar_t* CAPTION = vexa::PRODUCT_TITLE;
constexpr wchar_t PROG_ID[] = L"VexaPPE.ctlPPE";
// The identifiers of VexaPPE.idl, as the registry spells them.
constexpr wchar_t CLASS_ID[] = L"{A415E37F-A60D-4C4B-A34D-44D056493DA9}";
constexpr wchar_t TYPE_LIBRARY_ID[] = L"{4EC83D7F-A3B5-42BE-A4D5-7625D0FA59DB}";
constexpr wchar_t INTERFACE_ID[] = L"{197AF41F-62A7-4E90-B1AD-4E5BBB872D61}";
constexpr wchar_t CLASS_DESCRIPTION[] = L"Quillmark options page";

/// OLEMISC: recompose on resize, cannot link inside, inside-out, activate when visible, client site first.
/// The registry says the same.
constexpr unsigned long MISC_STATUS = 0x20191;
constexpr wchar_t MISC_STATUS_TEXT[] = L"131473";

}  // namespace com
