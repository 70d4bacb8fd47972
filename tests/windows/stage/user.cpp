#include "tests/windows/stage/user.h"

#include <commctrl.h>

#include <optional>

#include "tests/windows/stage/clipboard.h"
#include "tests/windows/stage/messages.h"

namespace tests {
namespace {

constexpr LPARAM ONE_PRESS = 1;
constexpr LPARAM ALT_HELD = 1 << 29;
constexpr LPARAM RELEASED = static_cast<LPARAM>(0xC0000001);

/// Where keys go that are typed at `window`.
HWND focusIn(HWND window) {
    const HWND focus = GetFocus();
    return focus != nullptr && (focus == window || IsChild(window, focus)) ? focus : window;
}

bool isLetterOrDigit(int key) { return (key >= 'A' && key <= 'Z') || (key >= '0' && key <= '9'); }

void pressAccessKey(HWND target, int key) {
    PostMessageW(target, WM_SYSKEYDOWN, static_cast<WPARAM>(key), ONE_PRESS | ALT_HELD);
    deliverInput();
}

void typeText(HWND target, const std::wstring& text) {
    for (const wchar_t character : text) PostMessageW(target, WM_CHAR, character, ONE_PRESS);
    deliverInput();
}

}  // namespace

HWND windowOf(const ui::Window& window) { return reinterpret_cast<HWND>(window.handle()); }

HWND windowOf(const ui::Control& control) { return reinterpret_cast<HWND>(control.handle()); }

bool isReachable(HWND window) {
    if (!IsWindowVisible(window)) return false;
    const HWND desktop = GetDesktopWindow();
    for (; window != nullptr && window != desktop; window = GetAncestor(window, GA_PARENT))
        if (!IsWindowEnabled(window)) return false;
    return true;
}

void clickAt(HWND window, int x, int y, int modifiers) {
    const HeldKeys held(modifiers);
    WPARAM keys = 0;
    if (modifiers & ui::modifier::shift) keys |= MK_SHIFT;
    if (modifiers & ui::modifier::control) keys |= MK_CONTROL;
    // Both wait in the queue: a control may look for the button's release while it handles the press.
    PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON | keys, MAKELPARAM(x, y));
    PostMessageW(window, WM_LBUTTONUP, keys, MAKELPARAM(x, y));
    deliverInput();
}

HeldKeys::HeldKeys(int modifiers) {
    GetKeyboardState(before_);
    BYTE held[256];
    GetKeyboardState(held);
    const auto set = [&](int bit, int key) { held[key] = modifiers & bit ? 0x80 : 0; };
    set(ui::modifier::shift, VK_SHIFT);
    set(ui::modifier::control, VK_CONTROL);
    set(ui::modifier::alt, VK_MENU);
    SetKeyboardState(held);
}

HeldKeys::~HeldKeys() { SetKeyboardState(before_); }

namespace {

/// The middle of a row's first cell, once it is in view; nothing where there is no such row.
std::optional<POINT> placeOfRow(HWND list, int row) {
    if (row < 0 || row >= SendMessageW(list, LVM_GETITEMCOUNT, 0, 0)) return {};
    SendMessageW(list, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
    RECT area{};
    area.left = LVIR_LABEL;
    SendMessageW(list, LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&area));
    return POINT{area.left + 4, (area.top + area.bottom) / 2};
}

class WindowsUser : public User {
public:
    void click(ui::Control& control) override {
        const HWND window = windowOf(control);
        if (!isReachable(window)) return;
        RECT area{};
        GetClientRect(window, &area);
        clickAt(window, area.right / 2, area.bottom / 2);
    }

    void moveMouse(ui::Control& control, int x, int y) override {
        POINT place{x, y};
        ClientToScreen(windowOf(control), &place);
        SetCursorPos(place.x, place.y);
        SendMessageW(windowOf(control), WM_MOUSEMOVE, 0, MAKELPARAM(x, y));
        deliverInput();
    }

    void press(ui::Window& window, int key, int modifiers) override {
        const HWND form = windowOf(window);
        if (!isReachable(form)) return;
        const HeldKeys held(modifiers);
        const bool altAlone = (modifiers & ui::modifier::alt) && !(modifiers & ui::modifier::control);
        if (altAlone && isLetterOrDigit(key)) return pressAccessKey(focusIn(form), key);
        PostMessageW(focusIn(form), WM_KEYDOWN, static_cast<WPARAM>(key), ONE_PRESS);
        deliverInput();
        // The release goes to whoever has the focus by then.
        if (const HWND focus = GetFocus()) PostMessageW(focus, WM_KEYUP, static_cast<WPARAM>(key), RELEASED);
        deliverInput();
    }

    void sendKey(ui::Control& control, int key) override {
        SendMessageW(windowOf(control), WM_KEYDOWN, static_cast<WPARAM>(key), ONE_PRESS);
        deliverInput();
    }

    void type(ui::Control& control, const std::wstring& text) override {
        const HWND window = windowOf(control);
        if (!isReachable(window)) return;
        if (GetFocus() != window && !IsChild(window, GetFocus())) SetFocus(window);
        deliverInput();
        if (const HWND focus = GetFocus(); focus == window || IsChild(window, focus)) typeText(focus, text);
    }

    void paste(ui::TextBox& control, const std::wstring& text) override {
        const HWND window = windowOf(control);
        if (!isReachable(window)) return;
        if (GetFocus() != window) SetFocus(window);
        putOnClipboard(window, CF_UNICODETEXT, memoryOf(text.c_str(), (text.size() + 1) * sizeof(wchar_t)));
        SendMessageW(window, WM_PASTE, 0, 0);
        deliverInput();
    }

    void pickItem(ui::ListBox& list, int index, int modifiers) override {
        const HWND window = windowOf(list);
        if (!isReachable(window)) return;
        RECT item{};
        RECT area{};
        GetClientRect(window, &area);
        SendMessageW(window, LB_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
        if (item.top < area.top || item.bottom > area.bottom)
            SendMessageW(window, LB_SETTOPINDEX, static_cast<WPARAM>(index), 0);
        SendMessageW(window, LB_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
        clickAt(window, (item.left + item.right) / 2, (item.top + item.bottom) / 2, modifiers);
    }

    void pickTab(ui::TabStrip& tabs, int index) override {
        const HWND window = windowOf(tabs);
        if (!isReachable(window)) return;
        RECT tab{};
        SendMessageW(window, TCM_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&tab));
        clickAt(window, (tab.left + tab.right) / 2, (tab.top + tab.bottom) / 2);
    }

    void step(ui::UpDown& upDown, bool up) override {
        const HWND window = windowOf(upDown);
        if (!isReachable(window)) return;
        RECT area{};
        GetClientRect(window, &area);
        clickAt(window, area.right / 2, up ? area.bottom / 4 : area.bottom * 3 / 4);
    }

    void choose(ui::ComboBox& combo, int index) override {
        const HWND window = windowOf(combo);
        if (!isReachable(window)) return;
        COMBOBOXINFO parts{};
        parts.cbSize = sizeof parts;
        GetComboBoxInfo(window, &parts);
        clickAt(window, (parts.rcButton.left + parts.rcButton.right) / 2,
                (parts.rcButton.top + parts.rcButton.bottom) / 2);
        SendMessageW(parts.hwndList, LB_SETTOPINDEX, static_cast<WPARAM>(index), 0);
        RECT entry{};
        SendMessageW(parts.hwndList, LB_GETITEMRECT, static_cast<WPARAM>(index),
                     reinterpret_cast<LPARAM>(&entry));
        clickAt(parts.hwndList, (entry.left + entry.right) / 2, (entry.top + entry.bottom) / 2);
    }

    void clickRow(ui::Grid& grid, int row) override {
        const HWND list = windowOf(grid);
        if (!isReachable(list)) return;
        if (const auto place = placeOfRow(list, row)) clickAt(list, place->x, place->y);
    }

    void doubleClickRow(ui::Grid& grid, int row) override {
        clickRow(grid, row);
        const HWND list = windowOf(grid);
        if (!isReachable(list)) return;
        const auto place = placeOfRow(list, row);
        if (!place) return;
        PostMessageW(list, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(place->x, place->y));
        PostMessageW(list, WM_LBUTTONUP, 0, MAKELPARAM(place->x, place->y));
        deliverInput();
    }

    void clickRowAndRest(ui::Grid& grid, int row) override {
        const int longerThanADoubleClick = static_cast<int>(GetDoubleClickTime()) + 300;
        wait(longerThanADoubleClick);
        clickRow(grid, row);
        wait(longerThanADoubleClick);
    }

    void clickHeader(ui::Grid& grid, int column) override {
        const HWND list = windowOf(grid);
        if (!isReachable(list)) return;
        const auto header = reinterpret_cast<HWND>(SendMessageW(list, LVM_GETHEADER, 0, 0));
        RECT area{};
        SendMessageW(header, HDM_GETITEMRECT, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&area));
        clickAt(header, (area.left + area.right) / 2, (area.top + area.bottom) / 2);
    }

    void rewrite(ui::Grid& grid, const std::wstring& text) override {
        const auto editor = reinterpret_cast<HWND>(SendMessageW(windowOf(grid), LVM_GETEDITCONTROL, 0, 0));
        if (editor == nullptr) return;
        SendMessageW(editor, EM_SETSEL, 0, -1);
        constexpr wchar_t BACKSPACE = 8;
        typeText(editor, BACKSPACE + text);
    }

    void clickButton(ui::Toolbar& toolbar, int index) override {
        const HWND window = windowOf(toolbar);
        if (!isReachable(window)) return;
        const ui::Rect area = toolbar.buttonBounds(index);
        clickAt(window, area.left + area.width / 2, area.top + area.height / 2);
    }

    void chooseFromMenu(ui::Grid& grid, int entry) override {
        const HWND list = windowOf(grid);
        if (!isReachable(list) || GetFocus() != list) return;
        for (int step = 0; step <= entry; ++step) PostMessageW(list, WM_KEYDOWN, VK_DOWN, ONE_PRESS);
        PostMessageW(list, WM_CHAR, L'\r', ONE_PRESS);
        // What the context-menu key comes to.
        SendMessageW(list, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(list), -1);
        deliverInput();
    }

    void chooseMenu(ui::Toolbar& toolbar, int index, int entry) override {
        const HWND window = windowOf(toolbar);
        if (!isReachable(window) || !toolbar.buttonEnabled(index)) return;
        const ui::Rect area = toolbar.buttonBounds(index);
        const LPARAM middle = MAKELPARAM(area.left + area.width / 2, area.top + area.height / 2);
        // The keys wait for the menu, whose loop runs inside the press.
        for (int step = 0; step <= entry; ++step) PostMessageW(window, WM_KEYDOWN, VK_DOWN, ONE_PRESS);
        PostMessageW(window, WM_CHAR, L'\r', ONE_PRESS);
        SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, middle);
        SendMessageW(window, WM_LBUTTONUP, 0, middle);
        deliverInput();
    }

    void resize(ui::Window& window, const ui::Size& outerSize) override {
        SetWindowPos(windowOf(window), nullptr, 0, 0, outerSize.width, outerSize.height,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        deliverInput();
    }

    void closeWindow(ui::Window& window) override {
        if (!isReachable(windowOf(window))) return;
        PostMessageW(windowOf(window), WM_SYSCOMMAND, SC_CLOSE, 0);
        deliverInput();
    }

    void wait(int milliseconds) override { deliverFor(milliseconds); }
};

}  // namespace

std::unique_ptr<User> windowsUser() { return std::make_unique<WindowsUser>(); }

}  // namespace tests
