#include "tests/headless/choice_controls.h"

#include "tests/headless/window.h"

namespace headless {

void CheckBox::setChecked(bool checked) {
    if (checked == checked_) return;
    checked_ = checked;
    raise(onClick);
}

void OptionButton::setSelected(bool selected) {
    if (selected == selected_) return;
    mark(selected);
    if (!selected) return;
    for (Item* other : window().groupOf(*this)) {
        auto* option = dynamic_cast<OptionButton*>(other);
        if (option != nullptr && option != this) option->mark(false);
    }
    raise(onClick);
}

void OptionButton::mark(bool selected) {
    selected_ = selected;
    state.tabStop = selected;
}

}  // namespace headless
