// What the registry is told of the class ctlPPE: one table, from which the control registers itself and the
// installer's packages get their rows. It knows nothing of Windows, so that the packages can be made
// anywhere.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "product_version.h"
#include "windows/com/names.h"

namespace com {

/// How the two bitnesses of the control share a row on a 64-bit Windows.
enum class Sharing {
    apart,   ///< each has its own: in its own view of the registry, or under a name of its own
    common,  ///< one row serves both
};

/// One text value below "Software\Classes". Its texts hold places: %CLSID%, %LIBID%, %IID%, %PROGID%, %NAME%,
/// %MISC%, %VERSION% are the same everywhere; %PLATFORM% is the bitness, %MODULE% the control's file.
struct RegistrationRow {
    Sharing sharing;
    const wchar_t* key;
    const wchar_t* name;  ///< null is the key's default value
    const wchar_t* value;
};

// The trees that the rows build; what is removed is removed by them.
inline constexpr wchar_t CLASS_KEY[] = L"CLSID\\%CLSID%";
inline constexpr wchar_t INTERFACE_KEY[] = L"Interface\\%IID%";
inline constexpr wchar_t PROG_ID_KEY[] = L"%PROGID%";
inline constexpr wchar_t PROG_ID_CLASS_KEY[] = L"%PROGID%\\CLSID";
inline constexpr wchar_t TYPE_LIBRARY_KEY[] = L"TypeLib\\%LIBID%";
inline constexpr wchar_t TYPE_LIBRARY_PLATFORM_KEY[] = L"TypeLib\\%LIBID%\\%VERSION%\\0\\%PLATFORM%";
inline constexpr wchar_t SERVER_KEY[] = L"CLSID\\%CLSID%\\InprocServer32";

inline constexpr RegistrationRow REGISTRATION[] = {
    {Sharing::apart, CLASS_KEY, nullptr, L"%NAME%"},
    {Sharing::apart, SERVER_KEY, nullptr, L"%MODULE%"},
    {Sharing::apart, SERVER_KEY, L"ThreadingModel", L"Apartment"},
    {Sharing::apart, L"CLSID\\%CLSID%\\ProgID", nullptr, L"%PROGID%"},
    {Sharing::apart, L"CLSID\\%CLSID%\\VersionIndependentProgID", nullptr, L"%PROGID%"},
    {Sharing::apart, L"CLSID\\%CLSID%\\TypeLib", nullptr, L"%LIBID%"},
    {Sharing::apart, L"CLSID\\%CLSID%\\Version", nullptr, L"%VERSION%"},
    {Sharing::apart, L"CLSID\\%CLSID%\\MiscStatus", nullptr, L"0"},
    {Sharing::apart, L"CLSID\\%CLSID%\\MiscStatus\\1", nullptr, L"%MISC%"},
    {Sharing::apart, L"CLSID\\%CLSID%\\ToolboxBitmap32", nullptr, L"%MODULE%, 1"},
    {Sharing::apart, L"CLSID\\%CLSID%\\Control", nullptr, L""},
    {Sharing::apart, L"CLSID\\%CLSID%\\Programmable", nullptr, L""},
    // The component category of controls.
    {Sharing::apart, L"CLSID\\%CLSID%\\Implemented Categories\\{40FC6ED4-2438-11CF-A3DB-080036F12502}",
     nullptr, L""},
    {Sharing::apart, INTERFACE_KEY, nullptr, L"IctlPPE"},
    // The system's marshaller for interfaces of type libraries.
    {Sharing::apart, L"Interface\\%IID%\\ProxyStubClsid32", nullptr,
     L"{00020424-0000-0000-C000-000000000046}"},
    {Sharing::apart, L"Interface\\%IID%\\TypeLib", nullptr, L"%LIBID%"},
    {Sharing::apart, L"Interface\\%IID%\\TypeLib", L"Version", L"%VERSION%"},
    {Sharing::apart, TYPE_LIBRARY_PLATFORM_KEY, nullptr, L"%MODULE%"},
    {Sharing::common, PROG_ID_KEY, nullptr, L"%NAME%"},
    {Sharing::common, PROG_ID_CLASS_KEY, nullptr, L"%CLSID%"},
    {Sharing::common, L"TypeLib\\%LIBID%\\%VERSION%", nullptr, L"%NAME%"},
    {Sharing::common, L"TypeLib\\%LIBID%\\%VERSION%\\FLAGS", nullptr, L"0"},
};

/// `text` with its places filled in. `platform` is "win64" or "win32".
inline std::wstring filledIn(std::wstring text, std::wstring_view platform, std::wstring_view module) {
    const std::pair<std::wstring_view, std::wstring_view> places[] = {
        {L"%CLSID%", CLASS_ID},
        {L"%LIBID%", TYPE_LIBRARY_ID},
        {L"%IID%", INTERFACE_ID},
        {L"%PROGID%", PROG_ID},
        {L"%NAME%", CLASS_DESCRIPTION},
        {L"%MISC%", MISC_STATUS_TEXT},
        {L"%VERSION%", L"" TYPE_LIBRARY_VERSION},
        {L"%PLATFORM%", platform},
        {L"%MODULE%", module},
    };
    for (const auto& [place, value] : places)
        if (const std::size_t at = text.find(place); at != std::wstring::npos)
            text.replace(at, place.size(), value);
    return text;
}

}  // namespace com
