// What the source files of the knowledgebase dialog share.
#pragma once

#include "common/raised.h"

namespace vexa {

/// The dialog's name in the log.
inline constexpr const wchar_t* FORM_NAME = L"frmKBConfiguration";
/// The title of its message boxes.
inline constexpr const wchar_t* BOX_TITLE = L"Quillmark";

/// Values of `KBProcessState`.
namespace processState {
constexpr int autoUpdate = 1;
constexpr int command = 2;
constexpr int ended = 3;
}  // namespace processState

}  // namespace vexa
