#include "tests/windows/stage/messages.h"

#include <windows.h>

#include <algorithm>
#include <chrono>
#include <cstdint>

#include "windows/platform/desktop.h"

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

bool take(MSG& message, UINT first, UINT last) {
    return PeekMessageW(&message, nullptr, first, last, PM_REMOVE) != FALSE;
}

}  // namespace

void deliverMessages() {
    MSG message;
    while (take(message, 0, WM_TIMER - 1) || take(message, WM_TIMER + 1, LAST_MESSAGE)) dispatch(message);
}

void deliverInput() {
    MSG message;
    while (take(message, 0, WM_PAINT - 1) || take(message, WM_PAINT + 1, WM_TIMER - 1) ||
           take(message, WM_TIMER + 1, LAST_MESSAGE))
        dispatch(message);
}

void deliverFor(int milliseconds) {
    const auto end = Clock::now() + std::chrono::milliseconds(milliseconds) + LATENESS;
    const auto left = [&] {
        return std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()).count();
    };
    while (left() > 0) {
        MSG message;
        // A timer whose handler takes as long as its interval is always due.
        while (left() > 0 && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) dispatch(message);
        const auto rest = static_cast<DWORD>(std::max<std::int64_t>(left(), 0));
        MsgWaitForMultipleObjectsEx(0, nullptr, rest, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    }
    win::Desktop().doEvents();  // what came up at the very end
}

}  // namespace tests
