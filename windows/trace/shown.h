// How the trace shows arguments and results.
#pragma once

#include <ole2.h>

#include <string>
#include <type_traits>

namespace trace {

[[nodiscard]] std::wstring hex(unsigned long long number);

// Outside ASCII every character counts as one; null pointers show as "null".
[[nodiscard]] std::wstring shown(const wchar_t* text);
[[nodiscard]] std::wstring shown(REFIID identifier);
[[nodiscard]] std::wstring shown(const RECT* area);
[[nodiscard]] std::wstring shown(const SIZE* size);
[[nodiscard]] std::wstring shown(const MSG* message);
/// Handle, class and place.
[[nodiscard]] std::wstring shown(HWND window);
[[nodiscard]] std::wstring shown(const VARIANT* value);

template <class Number>
requires std::is_arithmetic_v<Number> || std::is_enum_v<Number>
[[nodiscard]] std::wstring shown(Number number) { return std::to_wstring(static_cast<long long>(number)); }

/// Any other pointer: where it points.
template <class Type>
[[nodiscard]] std::wstring shown(Type* pointer) {
    return pointer == nullptr ? L"null" : hex(reinterpret_cast<ULONG_PTR>(pointer));
}

template <class... Arguments>
[[nodiscard]] std::wstring shownAll(const Arguments&... arguments) {
    std::wstring all;
    ((all += (all.empty() ? L"" : L", ") + shown(arguments)), ...);
    return all;
}

}  // namespace trace
