// What the product and its component are called where users see it.
#pragma once

namespace vexa {

/// The title of message boxes and of the page's tab.
inline constexpr const wchar_t* PRODUCT_TITLE = L"Quillmark";
/// The name of the component, which its start's message and its log bear.
inline constexpr const wchar_t* COMPONENT_TITLE = L"VexaPPE";

}  // namespace vexa
