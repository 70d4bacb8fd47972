#include "tests/windows/stage/messages.h"

#include <windows.h>

#include <chrono>

namespace tests {
namespace {

using Clock = std::chrono::steady_clock;

/// Timers of the system tick up to this much late.
constexpr std::chrono::milliseconds LATENESS{10};
constexpr UINT LAST_MESSAGE = 0xFFFF;

/// As the loop of a host's dialog does, which handles the keys of the page in it.
void dispatch(MSG& message) {
    const HWND root = GetAncestor(message.hwnd, GA_ROOT);
    const bool inDialog = GetClassLongPtrW(root, GCW_ATOM) == reinterpret_cast<ULONG_PTR>(WC_DIALOG);
    if (inDialog && IsDialogMessageW(root, &message)) return;
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

bool takeUntimed(MSG& message) {
    return PeekMessageW(&message, nullptr, 0, WM_TIMER - 1, PM_REMOVE) ||
           PeekMessageW(&message, nullptr, WM_TIMER + 1, LAST_MESSAGE, PM_REMOVE);
}

}  // namespace

void deliverMessages() {
    MSG message;
    while (takeUntimed(message)) dispatch(message);
}

void deliverFor(int milliseconds) {
    const auto end = Clock::now() + std::chrono::milliseconds(milliseconds) + LATENESS;
    for (;;) {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) dispatch(message);
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()).count();
        if (left <= 0) return;
        MsgWaitForMultipleObjectsEx(0, nullptr, static_cast<DWORD>(left), QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    }
}

}  // namespace tests
