#include "tests/headless/item.h"

#include "tests/headless/letters.h"
#include "tests/headless/window.h"

namespace headless {

Item::Item(Window& window, const TemplateControl& source) : window_(window), source_(source) {
    state.enabled = !source.has("WS_DISABLED");
    state.visible = source.has("WS_VISIBLE");
    state.tabStop = source.has("WS_TABSTOP");
    state.caption = source.caption;
    state.bounds = toPixels(source.units);
    state.handle = window.newHandle();
}

wchar_t Item::accessKey() const { return source_.has("SS_NOPREFIX") ? L'\0' : accessKeyOf(state.caption); }

void Item::takeKey(ui::KeyEvent event) {
    if (control().onKeyDown) control().onKeyDown(event);
    if (event.key != 0) handleKey(event);
}

void setItemEnabled(Item& item, bool enabled) {
    item.state.enabled = enabled;
    if (!enabled) item.window().dropFocus(item);
}

void setItemVisible(Item& item, bool visible) {
    item.state.visible = visible;
    if (!visible) item.window().dropFocus(item);
}

bool itemHasFocus(const Item& item) {
    return item.window().acceptsInput() && item.window().focused() == &item;
}

void focusItem(Item& item) { item.window().focus(item, FocusBy::program); }

wchar_t accessKeyOf(const std::wstring& caption) {
    for (std::size_t index = 0; index + 1 < caption.size(); ++index)
        if (caption[index] == L'&') {
            if (caption[index + 1] != L'&') return lower(caption[index + 1]);
            ++index;
        }
    return L'\0';
}

}  // namespace headless
