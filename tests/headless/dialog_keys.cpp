#include "tests/headless/dialog_keys.h"

#include <algorithm>

#include "tests/headless/choice_controls.h"
#include "tests/headless/letters.h"
#include "tests/headless/tab_strip.h"
#include "ui/dialog_ids.h"

namespace headless {
namespace {

bool isCharacter(int key) { return (key >= '0' && key <= '9') || (key >= 'A' && key <= 'Z'); }

void moveToTabStop(Window& window, const Item* from, bool forward) {
    if (Item* next = window.nextTabStop(from, forward)) window.focus(*next, FocusBy::keyboard);
}

/// Enter: the push button that has the focus, else the default button.
void pressDefault(Window& window) {
    Item* focused = window.focused();
    Item* button = focused != nullptr && focused->isPushButton() ? focused : window.defaultButton();
    if (button != nullptr && button->state.enabled) button->press();
}

/// Esc: the cancel button; a dialog without one closes.
void cancel(Window& window) {
    Item* button = window.itemWithId(IDC_cmdCancel);
    if (button == nullptr)
        window.close();
    else if (button->state.enabled)
        button->press();
}

/// Arrows: the next control of the group, around its end; an option is selected on arrival.
void moveInGroup(Window& window, bool forward) {
    Item* focused = window.focused();
    if (focused == nullptr) return;
    std::vector<Item*> group = window.groupOf(*focused);
    std::erase_if(group, [](const Item* item) { return !item->focusable(); });
    if (!forward) std::ranges::reverse(group);
    const auto place = std::ranges::find(group, focused);
    if (place == group.end() || group.size() < 2) return;
    Item* next = place + 1 == group.end() ? group.front() : *(place + 1);
    window.focus(*next, FocusBy::keyboard);
    if (dynamic_cast<OptionButton*>(next) != nullptr) next->press();
}

/// The access key of a control that cannot have the focus (a label) leads to the next tab stop after it.
void followAccessKey(Window& window, Item& item) {
    if (!item.focusable()) return moveToTabStop(window, &item, true);
    window.focus(item, FocusBy::keyboard);
    item.press();
}

/// The next control after the focused one with this access key; false where there is none.
bool takeAccessKey(Window& window, int key) {
    std::vector<Item*> order;
    for (const auto& item : window.items()) order.push_back(item.get());
    const auto focused = std::ranges::find(order, window.focused());
    if (focused != order.end()) std::rotate(order.begin(), focused + 1, order.end());
    const auto found = std::ranges::find_if(order, [&](const Item* item) {
        return item->usable() && item->accessKey() == lower(static_cast<wchar_t>(key));
    });
    if (found == order.end()) return false;
    followAccessKey(window, **found);
    return true;
}

/// By how many tabs a key leads on; 0 where it means none.
int tabStep(const ui::KeyEvent& event) {
    if ((event.modifiers & ui::modifier::control) == 0) return 0;
    if (event.key == tests::key::tab) return (event.modifiers & ui::modifier::shift) != 0 ? -1 : 1;
    if (event.key == tests::key::pageDown) return 1;
    return event.key == tests::key::pageUp ? -1 : 0;
}

/// Whether the key changed the tab, whichever control has the focus.
bool changeTab(Window& window, const ui::KeyEvent& event) {
    const int step = tabStep(event);
    if (step == 0) return false;
    for (const auto& item : window.items())
        if (auto* strip = dynamic_cast<TabStrip*>(item.get())) {
            strip->step(step);
            return true;
        }
    return false;
}

}  // namespace

void pressKey(Window& window, const ui::KeyEvent& event) {
    if (!window.acceptsInput()) return;
    Item* focused = window.focused();
    // With Ctrl, too, the key is no access key: that is how some keyboards write other characters.
    if ((event.modifiers & ui::modifier::alt) != 0 && (event.modifiers & ui::modifier::control) == 0) {
        takeAccessKey(window, event.key);
        return;
    }
    if (changeTab(window, event)) return;
    if (focused != nullptr && focused->wantsKey(event)) return focused->takeKey(event);
    if (event.key == tests::key::tab)
        return moveToTabStop(window, focused, (event.modifiers & ui::modifier::shift) == 0);
    if (event.key == tests::key::enter) return pressDefault(window);
    if (event.key == tests::key::escape) return cancel(window);
    if (isArrow(event.key))
        return moveInGroup(window, event.key >= tests::key::right && event.key != tests::key::up);
    const bool typed = focused != nullptr && focused->wantsCharacters();
    if (!typed && event.modifiers == 0 && isCharacter(event.key) && takeAccessKey(window, event.key)) return;
    if (focused != nullptr) focused->takeKey(event);
}

}  // namespace headless
