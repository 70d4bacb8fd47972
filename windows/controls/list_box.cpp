#include "windows/controls/list_box.h"

#include <new>
#include <stdexcept>

namespace win {

WPARAM ListBox::checked(int index) const {
    if (index < 0 || index >= count()) throw std::out_of_range("no such item in the list");
    return static_cast<WPARAM>(index);
}

int ListBox::add(const std::wstring& item) {
    const LRESULT index = send(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item.c_str()));
    if (index < 0) throw std::bad_alloc();
    return static_cast<int>(index);
}

std::wstring ListBox::item(int index) const {
    const WPARAM place = checked(index);
    std::wstring text(static_cast<std::size_t>(send(LB_GETTEXTLEN, place)) + 1, L'\0');
    send(LB_GETTEXT, place, reinterpret_cast<LPARAM>(text.data()));
    text.pop_back();
    return text;
}

void ListBox::setRedraw(bool redraw) {
    // Turning it on shows a hidden list, so a hidden one is left alone: it does not paint anyway.
    if (redraw != frozen_ || (!redraw && !isShown())) return;
    frozen_ = !redraw;
    send(WM_SETREDRAW, redraw);
    if (redraw) InvalidateRect(window(), nullptr, TRUE);
}

}  // namespace win
