#include "windows/platform/messages.h"

namespace win {
namespace {

bool isDialog(HWND window) {
    static const auto DIALOG_CLASS = reinterpret_cast<ULONG_PTR>(WC_DIALOG);
    return GetClassLongPtrW(window, GCW_ATOM) == DIALOG_CLASS;
}

HWND outermostDialog(HWND window) {
    HWND dialog = nullptr;
    for (; window != nullptr; window = GetAncestor(window, GA_PARENT))
        if (isDialog(window)) dialog = window;
    return dialog;
}

}  // namespace

void dispatchToDialogs(MSG& message) {
    const HWND dialog = outermostDialog(message.hwnd);
    if (dialog != nullptr && IsDialogMessageW(dialog, &message)) return;
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

}  // namespace win
