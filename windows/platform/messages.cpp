#include "windows/platform/messages.h"

#include <algorithm>
#include <vector>

namespace win {
namespace {

std::vector<HWND>& dialogs() {
    static std::vector<HWND> all;
    return all;
}

HWND dialogAround(HWND window) {
    const auto isDialog = [](HWND each) { return std::ranges::find(dialogs(), each) != dialogs().end(); };
    while (window != nullptr && !isDialog(window)) window = GetAncestor(window, GA_PARENT);
    return window;
}

}  // namespace

void noteDialog(HWND window) { dialogs().push_back(window); }

void forgetDialog(HWND window) noexcept { std::erase(dialogs(), window); }

void dispatchToDialogs(MSG& message) {
    const HWND dialog = dialogAround(message.hwnd);
    if (dialog != nullptr && IsDialogMessageW(dialog, &message)) return;
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

}  // namespace win
