// The settings record of the process and the catalogue of its values: the one place where a setting's name,
// key, type, default and order are written down. Load, Apply, the documentation and the tests come from it.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <variant>

#include "common/addin_contract.h"
#include "common/value.h"

namespace vexa {

/// One field per setting, named after its registry value. Starts with the catalogue's defaults.
struct Settings {
    Settings();

    std::wstring VexaBaseDir;
    std::wstring Projectname;
    std::wstring DefaultProject;
    std::int32_t ProjectCount{};
    std::int32_t MaxEntries{};
    std::int32_t MinRel{};
    bool LoggingInformation{};
    bool AutoInfo{};
    bool AutoFindUnread{};
    bool AutoFindAll{};
    std::int32_t AutoFindDelay{};
    std::int32_t FindShortcut{};
    bool AutoAddUnreadMail{};
    bool AutoAddSentMail{};
    bool DisplayHotSpots{};
    bool DisplayTextMarks{};
    bool KeepHighlights{};
    std::int32_t ColorHotSpots{};
    std::int32_t Penalty0{};
    std::int32_t Penalty1{};
    std::int32_t Penalty2{};
    std::int32_t Penalty3{};
    std::int32_t Penalty4{};
    std::int32_t Penalty5{};
    bool AddAttachments{};
    bool AddAllAttachments{};
    bool AddSizelimitedAttachments{};
    std::int32_t AttachmentsMaxSize{};
    bool AddAttachmentsToQuery{};

    bool operator==(const Settings&) const = default;
};

enum class SettingKey { root, profile };

/// Where a setting lives in the record.
using SettingMember = std::variant<std::wstring Settings::*, std::int32_t Settings::*, bool Settings::*>;

/// Of a number that the user types; inclusive.
struct Bounds {
    std::int32_t minimum;
    std::int32_t maximum;
};

struct Setting {
    const wchar_t* name;
    SettingKey key;
    SettingMember member;
    Value defaultValue;  ///< flags as integers: 0, 1 or the automation true, -1
    int applyOrder;      ///< position among Apply's writes from 1; 0 is never written
    const wchar_t* meaning;
    std::optional<Bounds> bounds{};
};

/// In the order in which they are read at start.
[[nodiscard]] std::span<const Setting> settingsCatalogue();

/// The settings that Apply writes, in its order.
[[nodiscard]] std::span<const Setting* const> applyOrder();

/// The catalogue's entry of a member of the record. Throws std::logic_error where there is none.
template <class T>
[[nodiscard]] const Setting& settingOf(T Settings::*member) {
    for (const Setting& setting : settingsCatalogue()) {
        const auto* candidate = std::get_if<T Settings::*>(&setting.member);
        if (candidate && *candidate == member) return setting;
    }
    throw std::logic_error("the catalogue lacks a member of the record");
}

/// The bounds that the catalogue gives a number. Throws std::logic_error where it gives none.
[[nodiscard]] Bounds boundsOf(std::int32_t Settings::*number);

/// Puts a value of the setting's own type (flags: an integer, not 0 is true) into the record.
void storeSetting(Settings& settings, const Setting& setting, const Value& value);

/// The record's value in the form in which it is stored: flags as 1 or 0.
[[nodiscard]] Value settingValue(const Settings& settings, const Setting& setting);

/// Values of the page alone that the record does not hold.
namespace valueName {
inline constexpr const wchar_t* CurrentProfile = L"CurrentProfile";
inline constexpr const wchar_t* LogPath = L"LogPath";
// How the list of knowledgebases was sorted when it was last closed.
inline constexpr const wchar_t* KBConfigSortOrder = L"KBConfigSortOrder";
inline constexpr const wchar_t* KBConfigColumn = L"KBConfigColumn";
inline constexpr const wchar_t* KBConfigSortType = L"KBConfigSortType";
}  // namespace valueName

}  // namespace vexa
