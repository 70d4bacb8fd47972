#include "windows/platform/desktop.h"

#include <windows.h>

#include <map>

#include "windows/platform/messages.h"

namespace win {
namespace {

vexa::PointerShape pointerShape = vexa::PointerShape::standard;

LPCWSTR cursorOf(vexa::PointerShape shape) {
    switch (shape) {
        case vexa::PointerShape::hourglass: return IDC_WAIT;
        case vexa::PointerShape::arrowHourglass: return IDC_APPSTARTING;
        case vexa::PointerShape::standard: break;
    }
    return IDC_ARROW;
}

/// The system tells a callback only the timer's number.
std::map<UINT_PTR, vexa::SystemTimers::Callback>& runningTimers() {
    static std::map<UINT_PTR, vexa::SystemTimers::Callback> timers;
    return timers;
}

void CALLBACK tick(HWND, UINT, UINT_PTR identifier, DWORD) noexcept {
    const auto timer = runningTimers().find(identifier);
    if (timer != runningTimers().end()) timer->second();
}

}  // namespace

std::intptr_t Desktop::sendMessage(std::intptr_t window, std::uint32_t message, std::uintptr_t wParam,
                                   std::intptr_t lParam) {
    const auto receiver = reinterpret_cast<HWND>(window);
    // Also keeps numbers that mean "all windows" from reaching anybody.
    return IsWindow(receiver) ? SendMessageA(receiver, message, wParam, lParam) : 0;
}

void Desktop::setPointer(vexa::PointerShape shape) {
    pointerShape = shape;
    SetCursor(LoadCursorW(nullptr, cursorOf(shape)));
}

bool keepPointer() noexcept {
    if (pointerShape == vexa::PointerShape::standard) return false;
    SetCursor(LoadCursorW(nullptr, cursorOf(pointerShape)));
    return true;
}

void Desktop::doEvents() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            // The host's own loop must see it.
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        dispatchToDialogs(message);
    }
}

SystemTimers::~SystemTimers() {
    for (const auto& [identifier, callback] : runningTimers()) KillTimer(nullptr, identifier);
    runningTimers().clear();
}

std::uintptr_t SystemTimers::setTimer(std::uint32_t milliseconds, Callback callback) {
    const UINT_PTR identifier = SetTimer(nullptr, 0, milliseconds, tick);
    if (identifier != 0) runningTimers()[identifier] = callback;
    return identifier;
}

void SystemTimers::killTimer(std::uintptr_t identifier) {
    KillTimer(nullptr, identifier);
    runningTimers().erase(identifier);
}

}  // namespace win
