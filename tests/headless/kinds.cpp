#include "tests/headless/kinds.h"

#include <algorithm>
#include <cctype>
#include <string>

#include "tests/headless/choice_controls.h"
#include "tests/headless/combo_box.h"
#include "tests/headless/grid.h"
#include "tests/headless/list_box.h"
#include "tests/headless/plain_controls.h"
#include "tests/headless/rich_text.h"
#include "tests/headless/tab_strip.h"
#include "tests/headless/text_box.h"
#include "tests/headless/toolbar.h"
#include "tests/headless/up_down.h"

namespace headless {
namespace {

template <class T>
std::unique_ptr<Item> make(Window& window, const TemplateControl& source) {
    return std::make_unique<T>(window, source);
}

/// A row of the table of kinds: the first row whose class and style a control has is its kind.
struct KindRow {
    const char* windowClass;
    const char* style;  ///< empty: any
    ui::Kind kind;
    std::unique_ptr<Item> (*make)(Window&, const TemplateControl&);
};

const KindRow KINDS[] = {
    {"Button", "BS_GROUPBOX", ui::Kind::frame, make<Frame>},
    {"Button", "BS_AUTOCHECKBOX", ui::Kind::checkBox, make<CheckBox>},
    {"Button", "BS_AUTORADIOBUTTON", ui::Kind::optionButton, make<OptionButton>},
    {"Button", "BS_OWNERDRAW", ui::Kind::swatch, make<Swatch>},
    {"Button", "", ui::Kind::button, make<Button>},
    {"Static", "SS_ICON", ui::Kind::picture, make<Picture>},
    {"Static", "SS_ETCHEDHORZ", ui::Kind::line, make<Line>},
    {"Static", "SS_ETCHEDVERT", ui::Kind::line, make<Line>},
    {"Static", "", ui::Kind::label, make<Label>},
    {"Edit", "", ui::Kind::textBox, make<TextBox>},
    {"ComboBox", "", ui::Kind::comboBox, make<ComboBox>},
    {"SysListView32", "LVS_OWNERDATA", ui::Kind::grid, make<Grid>},
    {"ListBox", "", ui::Kind::listBox, make<ListBox>},
    {"msctls_updown32", "", ui::Kind::upDown, make<UpDown>},
    {"SysTabControl32", "", ui::Kind::tabStrip, make<TabStrip>},
    {"RICHEDIT50W", "", ui::Kind::richText, make<RichText>},
    {"ToolbarWindow32", "", ui::Kind::toolbar, make<Toolbar>},
};

bool sameClass(const std::string& one, const std::string& other) {
    return std::ranges::equal(
        one, other, [](unsigned char a, unsigned char b) { return std::tolower(a) == std::tolower(b); });
}

const KindRow* findKind(const TemplateControl& source) {
    const auto* found = std::ranges::find_if(KINDS, [&](const KindRow& row) {
        return sameClass(row.windowClass, source.windowClass) &&
               (*row.style == '\0' || source.has(row.style));
    });
    return found == std::end(KINDS) ? nullptr : found;
}

}  // namespace

std::optional<ui::Kind> kindOf(const TemplateControl& source) {
    const KindRow* row = findKind(source);
    return row == nullptr ? std::optional<ui::Kind>() : row->kind;
}

std::unique_ptr<Item> makeItem(Window& window, const TemplateControl& source) {
    const KindRow* row = findKind(source);
    return row == nullptr ? make<Label>(window, source) : row->make(window, source);
}

}  // namespace headless
