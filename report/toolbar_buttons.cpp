#include "report/toolbar_buttons.h"

#include "report/frmSendBugReport.ids.h"

namespace vexa {
namespace {

using Type = ui::ToolbarButton::Type;

struct MenuColour {
    const wchar_t* text;
    const wchar_t* key;
    ui::Colour colour;
};

constexpr MenuColour menuColours[] = {
    {L"Black", L"colBlack", 0x000000},   {L"Blue", L"colBlue", 0xFF0000},
    {L"Green", L"colGreen", 0x00FF00},   {L"Cyan", L"colCyan", 0xFFFF00},
    {L"Red", L"colRed", 0x0000FF},       {L"Magenta", L"colMagenta", 0xFF00FF},
    {L"Yellow", L"colYellow", 0x00FFFF}, {L"White", L"colWhite", 0xFFFFFF},
};

std::vector<ui::ToolbarMenuEntry> colourMenu() {
    std::vector<ui::ToolbarMenuEntry> menu;
    for (const MenuColour& entry : menuColours) menu.push_back({entry.text, entry.key});
    return menu;
}

ui::ToolbarButton gap(Type type) { return {type, L"", L"", 0, {}}; }

ui::ToolbarButton button(Type type, const wchar_t* tooltip, int icon) {
    return {type, L"", tooltip, icon, {}};
}

}  // namespace

std::vector<ui::ToolbarButton> sendButtons() { return {{Type::push, L"Send", L"Send", IDI_send, {}}}; }

std::vector<ui::ToolbarButton> propertyButtons() {
    return {
        button(Type::check, L"High Importance", IDI_highImportance),
        button(Type::check, L"Low Importance", IDI_lowImportance),
        gap(Type::separator),
        gap(Type::placeholder),
        gap(Type::separator),
        gap(Type::placeholder),
        gap(Type::separator),
        {Type::dropDown, L"", L"Forecolor", IDI_forecolor, colourMenu()},
        gap(Type::separator),
        button(Type::check, L"Bold", IDI_bold),
        button(Type::check, L"Italic", IDI_italic),
        button(Type::check, L"Underline", IDI_underline),
        gap(Type::separator),
        button(Type::check, L"Left Align", IDI_leftAlign),
        button(Type::check, L"Center", IDI_center),
        button(Type::check, L"Right Align", IDI_rightAlign),
        button(Type::check, L"Bullet Indent", IDI_bulletIndent),
        button(Type::push, L"Numeration", IDI_numeration),
        button(Type::push, L"Decrease Indent", IDI_decreaseIndent),
        button(Type::push, L"Increase Indent", IDI_increaseIndent),
    };
}

std::optional<ui::Colour> menuColour(const std::wstring& key) {
    for (const MenuColour& entry : menuColours)
        if (key == entry.key) return entry.colour;
    return std::nullopt;
}

}  // namespace vexa
