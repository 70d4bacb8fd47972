// What the source files of the knowledgebase dialog share.
#pragma once

#include "common/raised.h"

namespace vexa {

/// The dialog's name in the log.
inline constexpr const wchar_t* FORM_NAME = L"frmKBConfiguration";
/// The title of its message boxes.
inline constexpr const wchar_t* BOX_TITLE = L"Quillmark";

}  // namespace vexa
