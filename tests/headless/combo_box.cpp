#include "tests/headless/combo_box.h"

#include "tests/headless/letters.h"

namespace headless {

void ComboBox::clear() {
    items_.clear();
    selected_ = -1;
}

bool ComboBox::wantsKey(const ui::KeyEvent& event) const {
    const bool arrow = event.key >= tests::key::left && event.key <= tests::key::down;
    return arrow || (droppedDown_ && (event.key == tests::key::enter || event.key == tests::key::escape));
}

void ComboBox::handleKey(const ui::KeyEvent& event) {
    switch (event.key) {
        case tests::key::up:
        case tests::key::left: return moveTo(selected_ - 1);
        case tests::key::down:
        case tests::key::right: return moveTo(selected_ + 1);
        case tests::key::home: return moveTo(0);
        case tests::key::end: return moveTo(count() - 1);
        case tests::key::enter: return confirm();
        case tests::key::escape: droppedDown_ = false; return;
        default:
            if (event.modifiers == 0 && event.key >= '0' && event.key <= 'Z')
                handleCharacter(static_cast<wchar_t>(event.key));
    }
}

void ComboBox::handleCharacter(wchar_t character) {
    for (int step = 1; step <= count(); ++step) {
        const int index = (selected_ + step) % count();
        const std::wstring entry = item(index);
        if (!entry.empty() && lower(entry.front()) == lower(character)) return moveTo(index);
    }
}

void ComboBox::press() {
    droppedDown_ = !droppedDown_;
    told_ = -1;
}

void ComboBox::moveTo(int index) {
    if (index < 0 || index >= count()) return;
    told_ = selected_ = index;
    raise(onClick);
}

void ComboBox::confirm() {
    droppedDown_ = false;
    if (told_ != selected_) moveTo(selected_);
}

void ComboBox::choose(int index) {
    droppedDown_ = false;
    moveTo(index);
}

}  // namespace headless
