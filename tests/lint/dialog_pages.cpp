#include "tests/lint/dialog_pages.h"

#include <algorithm>
#include <stdexcept>

#include "tests/headless/kinds.h"

namespace headless {

bool isFrame(const TemplateControl& control) { return kindOf(control) == ui::Kind::frame; }
bool isLabel(const TemplateControl& control) { return kindOf(control) == ui::Kind::label; }
bool isTabStrip(const TemplateControl& control) { return control.windowClass == "SysTabControl32"; }
bool isToolbar(const TemplateControl& control) { return control.windowClass == "ToolbarWindow32"; }
bool isUpDown(const TemplateControl& control) { return control.windowClass == "msctls_updown32"; }
bool isDecoration(const TemplateControl& control) {
    return control.windowClass == "Static" || isFrame(control);
}

ui::Rect placeOf(const TemplateControl& control) {
    constexpr int CLOSED_COMBO = 13;
    ui::Rect place = control.units;
    if (control.windowClass == "ComboBox") place.height = std::min(place.height, CLOSED_COMBO);
    return place;
}

bool isEmpty(const ui::Rect& place) { return place.width == 0 || place.height == 0; }

bool overlap(const ui::Rect& one, const ui::Rect& other) {
    return one.left < rightOf(other) && other.left < rightOf(one) && one.top < bottomOf(other) &&
           other.top < bottomOf(one);
}

bool contains(const ui::Rect& outer, const ui::Rect& inner) {
    return inner.left >= outer.left && inner.top >= outer.top && rightOf(inner) <= rightOf(outer) &&
           bottomOf(inner) <= bottomOf(outer);
}

std::vector<Controls> pagesOf(const DialogTemplate& dialog) {
    const auto tab = std::ranges::find_if(dialog.controls, isTabStrip);
    Controls first, second;
    for (const TemplateControl& control : dialog.controls) {
        const bool onTab =
            tab != dialog.controls.end() && &control != &*tab && contains(tab->units, control.units);
        if (!onTab || control.has("WS_VISIBLE")) first.push_back(&control);
        if (!onTab || !control.has("WS_VISIBLE")) second.push_back(&control);
    }
    if (tab == dialog.controls.end()) return {first};
    return {first, second};
}

DialogTemplate flawed(const std::string& dialog, const std::string& control,
                      const std::function<void(DialogTemplate& dialog, std::size_t control)>& plant) {
    for (DialogTemplate copy : allDialogs())
        for (std::size_t index = 0; index < copy.controls.size(); ++index)
            if (copy.idName == dialog && copy.controls[index].idName == control) {
                plant(copy, index);
                return copy;
            }
    throw std::logic_error(dialog + " has no control " + control);
}

}  // namespace headless
