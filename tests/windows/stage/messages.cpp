#include "tests/windows/stage/messages.h"

#include <chrono>

#include "windows/platform/messages.h"

namespace tests {
namespace {

using Clock = std::chrono::steady_clock;

/// Timers of the system tick up to this much late.
constexpr std::chrono::milliseconds LATENESS{10};
constexpr UINT LAST_MESSAGE = 0xFFFF;

bool takeUntimed(MSG& message) {
    return PeekMessageW(&message, nullptr, 0, WM_TIMER - 1, PM_REMOVE) ||
           PeekMessageW(&message, nullptr, WM_TIMER + 1, LAST_MESSAGE, PM_REMOVE);
}

}  // namespace

void deliverMessages() {
    MSG message;
    while (takeUntimed(message)) win::dispatchToDialogs(message);
}

void deliverFor(int milliseconds) {
    const auto end = Clock::now() + std::chrono::milliseconds(milliseconds) + LATENESS;
    for (;;) {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) win::dispatchToDialogs(message);
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()).count();
        if (left <= 0) return;
        MsgWaitForMultipleObjectsEx(0, nullptr, static_cast<DWORD>(left), QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    }
}

}  // namespace tests
