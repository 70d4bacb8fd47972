// Keys that mean the whole dialog, and its help.
#include <cstddef>

#include "windows/controls/screen.h"
#include "windows/controls/tab_strip.h"
#include "windows/controls/window.h"
#include "windows/platform/text.h"

namespace win {
namespace {

bool isDown(int key) { return GetKeyState(key) < 0; }

/// By how many tabs a key leads on; 0 where it means none.
int tabStep(WPARAM key) {
    if (!isDown(VK_CONTROL) || isDown(VK_MENU)) return 0;
    switch (key) {
        case VK_TAB: return isDown(VK_SHIFT) ? -1 : 1;
        case VK_NEXT: return 1;
        case VK_PRIOR: return -1;
        default: return 0;
    }
}

/// A text of the module in UTF-8; empty where there is none.
std::string textResource(HINSTANCE module, int identifier) {
    const HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(identifier), RT_RCDATA);
    const HGLOBAL loaded = found ? LoadResource(module, found) : nullptr;
    if (loaded == nullptr) return {};
    return {static_cast<const char*>(LockResource(loaded)), SizeofResource(module, found)};
}

void replaceAll(std::string& text, const std::string& what, const std::string& by) {
    for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + by.size()))
        text.replace(at, what.size(), by);
}

/// The document's marks for headings, emphasis and code say nothing in plain text, whose lines break where
/// the window ends.
std::string plainText(std::string document) {
    for (const char* mark : {"\r", "**", "`"}) replaceAll(document, mark, "");
    replaceAll(document, "\n  ", " ");
    if (document.starts_with("# ")) document.erase(0, 2);
    std::string plain;
    for (std::size_t at = 0; at < document.size(); ++at) {
        const bool lineGoesOn = document[at] == '\n' && plain.back() != '\n' && at + 1 < document.size() &&
                                document[at + 1] != '\n' && document[at + 1] != '-';
        plain += lineGoesOn ? ' ' : document[at];
    }
    return plain;
}

}  // namespace

bool Window::wantsKey(const MSG& message) const {
    return message.message == WM_KEYDOWN && tabStep(message.wParam) != 0 && tabs() != nullptr;
}

bool Window::takeKey(WPARAM key) {
    const int step = tabStep(key);
    TabStrip* strip = step != 0 ? tabs() : nullptr;
    if (strip == nullptr) return false;
    strip->step(step);
    return true;
}

TabStrip* Window::tabs() const {
    for (const auto& [identifier, wrapper] : controls_)
        if (auto* strip = dynamic_cast<TabStrip*>(wrapper.get())) return strip;
    return nullptr;
}

/// A question above the dialog passes its own request for help on to the dialog.
std::optional<LRESULT> Window::showHelp() {
    const std::string text = textResource(screen_.instance(), templateIdentifier_);
    if (role_ != Role::dialog || text.empty()) return std::nullopt;
    if (IsWindowEnabled(handle_))
        screen_.showMessage(this,
                            {fromUtf8(plainText(text)), L"What is this?", ui::MessageIcon::information});
    return TRUE;
}

}  // namespace win
