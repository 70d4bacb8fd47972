#include "docs/settings_table.h"

#include <algorithm>
#include <stdexcept>

#include "common/settings.h"

namespace docs {
namespace {

const std::string BEGIN_MARK = "<!-- settings: begin -->\n";
const std::string END_MARK = "<!-- settings: end -->\n";

/// Names and meanings of the catalogue are plain ASCII.
std::string ascii(const std::wstring& text) {
    std::string narrow(text.size(), ' ');
    std::ranges::transform(text, narrow.begin(), [](wchar_t letter) { return static_cast<char>(letter); });
    return narrow;
}

std::string code(const std::string& text) { return "`" + text + "`"; }

bool isColour(const vexa::Setting& setting) {
    const std::wstring name = setting.name;
    return name.starts_with(L"Color") || name.starts_with(L"Penalty");
}

std::string typeOf(const vexa::Setting& setting) {
    if (std::holds_alternative<std::wstring>(setting.defaultValue)) return "text";
    if (std::holds_alternative<bool vexa::Settings::*>(setting.member)) return "flag";
    return isColour(setting) ? "colour" : "integer";
}

std::string colourText(std::int32_t colour) {
    constexpr char digits[] = "0123456789ABCDEF";
    std::string text = "0x";
    for (int shift = 20; shift >= 0; shift -= 4) text += digits[(colour >> shift) & 15];
    return text;
}

std::string defaultOf(const vexa::Setting& setting) {
    if (const auto* text = std::get_if<std::wstring>(&setting.defaultValue))
        return text->empty() ? "(empty)" : code(ascii(*text));
    const auto number = std::get<std::int32_t>(setting.defaultValue);
    if (typeOf(setting) == "flag") return number == 0 ? "off" : "on";
    return isColour(setting) ? colourText(number) : std::to_string(number);
}

std::string rowOf(const vexa::Setting& setting) {
    const std::string key = setting.key == vexa::SettingKey::root ? "root" : "profile";
    const std::string written = setting.applyOrder == 0 ? "no" : std::to_string(setting.applyOrder);
    return "| " + code(ascii(setting.name)) + " | " + key + " | " + typeOf(setting) + " | " +
           defaultOf(setting) + " | " + written + " | " + ascii(setting.meaning) + " |\n";
}

}  // namespace

std::string settingsTable() {
    std::string table =
        "| Value | Key | Type | Default | Written on Apply | Meaning |\n"
        "|---|---|---|---|---|---|\n";
    for (const vexa::Setting& setting : vexa::settingsCatalogue()) table += rowOf(setting);
    return table;
}

std::string withSettingsTable(const std::string& document) {
    const auto begin = document.find(BEGIN_MARK);
    const auto end = document.find(END_MARK);
    if (begin == std::string::npos || end == std::string::npos || end < begin)
        throw std::runtime_error("the document has no place for the table");
    const auto tableBegin = begin + BEGIN_MARK.size();
    return document.substr(0, tableBegin) + settingsTable() + document.substr(end);
}

}  // namespace docs
