// The one exception type of the program: an error with a description for the log or a message box.
#pragma once

#include <exception>
#include <string>
#include <utility>

namespace vexa {

class Error : public std::exception {
public:
    explicit Error(std::wstring description) : description_(std::move(description)) {}
    [[nodiscard]] const std::wstring& description() const noexcept { return description_; }
    [[nodiscard]] const char* what() const noexcept override { return "vexa::Error"; }

private:
    std::wstring description_;
};

/// Descriptions of errors that more than one room may throw.
namespace description {
inline constexpr const wchar_t* outOfMemory = L"Out of memory";
inline constexpr const wchar_t* overflow = L"Overflow";
inline constexpr const wchar_t* typeMismatch = L"Type mismatch";
}  // namespace description

/// The description of the exception in flight; call it inside a catch block. Out of memory and foreign
/// exceptions get a description, too.
[[nodiscard]] std::wstring currentErrorDescription();

}  // namespace vexa
