// registration_rows PLATFORM MODULE: prints the rows of the control's registration, for the packages. One
// line a row, separated by bars: "apart" or "common" (whether the bitnesses share it), the key, the value's
// name and its text. PLATFORM is win64 or win32; MODULE stands for the control's file.
#include <iostream>
#include <string>
#include <string_view>

#include "windows/com/registration_table.h"

namespace {

/// The table's texts are ASCII.
std::string narrow(const std::wstring& text) { return {text.begin(), text.end()}; }
std::wstring widen(std::string_view text) { return {text.begin(), text.end()}; }

void print(const com::RegistrationRow& row, const std::wstring& platform, const std::wstring& module) {
    const auto text = [&](const wchar_t* part) { return narrow(com::filledIn(part, platform, module)); };
    std::cout << (row.sharing == com::Sharing::apart ? "apart" : "common") << '|' << "Software\\Classes\\"
              << text(row.key) << '|' << (row.name == nullptr ? "" : text(row.name)) << '|' << text(row.value)
              << '\n';
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 3) {
        std::cerr << "registration_rows PLATFORM MODULE\n";
        return 2;
    }
    for (const com::RegistrationRow& row : com::REGISTRATION)
        print(row, widen(arguments[1]), widen(arguments[2]));
    return 0;
}
