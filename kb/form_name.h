// The knowledgebase dialog's name in the log, for all its parts.
#pragma once

namespace vexa {

inline constexpr const wchar_t* FORM_NAME = L"frmKBConfiguration";

}  // namespace vexa
