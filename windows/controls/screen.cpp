#include "windows/controls/screen.h"

#include <commctrl.h>

#include <algorithm>

#include "windows/controls/dpi.h"
#include "windows/controls/window.h"
#include "windows/platform/text.h"

namespace win {
namespace {

constexpr double TWIPS_PER_INCH = 1440.0;

int CALLBACK noteFont(const LOGFONTW* font, const TEXTMETRICW*, DWORD, LPARAM names) noexcept {
    try {
        auto& list = *reinterpret_cast<std::vector<std::wstring>*>(names);
        const std::wstring name = font->lfFaceName;
        // A font comes once per character set, and once more for vertical writing, marked by "@".
        if (!name.starts_with(L'@') && std::ranges::find(list, name) == list.end()) list.push_back(name);
        return 1;
    } catch (...) {
        return 0;
    }
}

}  // namespace

HWND handleOf(const ui::Window* window) {
    return window ? reinterpret_cast<HWND>(window->handle()) : nullptr;
}

Screen::Screen(HINSTANCE instance) : instance_(instance), context_(instance) {
    const Activation themed(context_);
    const INITCOMMONCONTROLSEX wanted{sizeof wanted, ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&wanted);
}

Screen::~Screen() {
    if (richEdit_ != nullptr) FreeLibrary(richEdit_);
}

void Screen::loadRichEdit() {
    if (richEdit_ == nullptr)
        richEdit_ = LoadLibraryExW(L"msftedit.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (richEdit_ == nullptr) throwLastError();
}

ToolbarImages& Screen::toolbarImages(int side) {
    return toolbarImages_.try_emplace(side, icons_, side).first->second;
}

std::unique_ptr<ui::Window> Screen::createDialog(int templateIdentifier, ui::Window* owner) {
    const HWND parent = owner ? GetAncestor(handleOf(owner), GA_ROOT) : nullptr;
    return std::make_unique<Window>(*this, Window::Role::dialog, templateIdentifier, parent,
                                    dynamic_cast<Window*>(owner));
}

std::unique_ptr<ui::Window> Screen::createPage(int templateIdentifier, HWND parent, MessageWatch* watch) {
    auto page = std::make_unique<Window>(*this, Window::Role::page, templateIdentifier, parent, nullptr);
    if (watch != nullptr) page->watchMessages(*watch);
    return page;
}

double Screen::twipsPerPixelX() const { return TWIPS_PER_INCH / systemDpi(); }

std::vector<std::wstring> Screen::fonts() const {
    std::vector<std::wstring> names;
    LOGFONTW all{};
    all.lfCharSet = DEFAULT_CHARSET;
    const HDC screen = GetDC(nullptr);
    EnumFontFamiliesExW(screen, &all, noteFont, reinterpret_cast<LPARAM>(&names), 0);
    ReleaseDC(nullptr, screen);
    return names;
}

// --- Modal loops ------------------------------------------------------------------------------------------

Screen::Modal::Modal(Screen& screen, Window* asker, WORD cancel)
    : screen_(screen), window_(asker), cancel_(cancel) {
    screen_.modals_.push_back(this);
    if (screen_.modals_.size() == 1) screen_.tellModalState(true);
}

Screen::Modal::~Modal() {
    std::erase(screen_.modals_, this);
    if (!screen_.modals_.empty()) return;
    screen_.closing_ = false;
    screen_.tellModalState(false);
}

void Screen::tellModalState(bool runs) noexcept {
    try {
        raise(onModalState, runs);
    } catch (...) {
        return;  // the loop runs, whether its watcher likes it or not
    }
}

bool Screen::Modal::opens(HWND question) {
    if (!cancelled_) question_ = question;
    return !cancelled_;
}

/// The one button of a box has the identifier of OK or of Cancel, depending on the system.
void Screen::Modal::cancel() {
    if (cancel_ == 0) return;
    cancelled_ = true;
    const WORD command = GetDlgItem(question_, cancel_) != nullptr ? cancel_ : IDCANCEL;
    if (question_ != nullptr) PostMessageW(question_, WM_COMMAND, command, 0);
}

void Screen::remove(Window& window) {
    closeDialogsOf(window);
    std::erase(windows_, &window);
    for (Window* other : windows_) other->forgetOwner(window);
    for (Modal* modal : modals_)
        if (modal->window_ == &window) modal->window_ = nullptr;
}

/// The youngest first. Closing may change the list, so each search starts anew; nothing here takes memory,
/// for a window may end because there is none left.
template <class Chosen>
void Screen::closeOpen(Chosen chosen) {
    for (;;) {
        const auto window = std::find_if(windows_.rbegin(), windows_.rend(),
                                         [&](const Window* each) { return each->isOpen() && chosen(*each); });
        if (window == windows_.rend()) return;
        (*window)->close();
    }
}

void Screen::closeDialogsOf(const Window& window) {
    for (Modal* modal : modals_)
        if (modal->window_ && (modal->window_ == &window || modal->window_->descendsFrom(window)))
            modal->cancel();
    closeOpen([&](const Window& other) { return other.descendsFrom(window); });
}

void Screen::closeAll() {
    closing_ = !modals_.empty();
    for (Modal* modal : modals_) modal->cancel();
    closeOpen([](const Window& window) { return window.role() == Window::Role::dialog; });
}

}  // namespace win
