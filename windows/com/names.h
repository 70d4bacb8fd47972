// What the class ctlPPE is called and how it presents itself to containers.
#pragma once

#include <windows.h>

namespace com {

/// The title of the page's tab and the name that users see.
constexpr wchar_t CAPTION[] = L"Quillmark";
constexpr wchar_t PROG_ID[] = L"VexaPPE.ctlPPE";
constexpr wchar_t CLASS_DESCRIPTION[] = L"Quillmark options page";

/// OLEMISC: recompose on resize, cannot link inside, inside-out, activate when visible, client site first.
/// The registry says the same.
constexpr DWORD MISC_STATUS = 0x20191;
constexpr wchar_t MISC_STATUS_TEXT[] = L"131473";

}  // namespace com
