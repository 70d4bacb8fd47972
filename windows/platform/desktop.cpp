#include "windows/platform/desktop.h"

#include <windows.h>

#include <map>

#include "common/error.h"
#include "windows/platform/pending_events.h"
#include "windows/platform/sent_message.h"

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

/// The system's timers by number, with what their ticks call.
std::map<UINT_PTR, vexa::SystemTimers::Callback>& runningTimers() {
    static std::map<UINT_PTR, vexa::SystemTimers::Callback> timers;
    return timers;
}

/// What the ticks of killed timers call that were on their way already.
vexa::SystemTimers::Callback lastCallback = nullptr;

void CALLBACK tick(HWND, UINT, UINT_PTR identifier, DWORD) noexcept {
    const auto timer = runningTimers().find(identifier);
    const auto callback = timer == runningTimers().end() ? lastCallback : timer->second;
    if (callback != nullptr) callback();
}

}  // namespace

bool Desktop::sendMessage(std::intptr_t window, std::uint32_t message, std::uintptr_t wParam,
                          std::intptr_t lParam) {
    // Numbers that mean "all windows" are no windows.
    const Sent result = sendAndWait(reinterpret_cast<HWND>(window), message, wParam, lParam);
    if (result == Sent::hung) throw vexa::Error(L"The window does not respond");
    return result == Sent::handled;
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

void Desktop::doEvents() { PendingEvents().run(); }

SystemTimers::~SystemTimers() {
    for (const auto& [identifier, callback] : runningTimers()) KillTimer(nullptr, identifier);
    runningTimers().clear();
    lastCallback = nullptr;
}

std::uintptr_t SystemTimers::setTimer(std::uint32_t milliseconds, Callback callback) {
    const UINT_PTR identifier = SetTimer(nullptr, 0, milliseconds, tick);
    if (identifier != 0) runningTimers()[identifier] = lastCallback = callback;
    return identifier;
}

void SystemTimers::killTimer(std::uintptr_t identifier) {
    KillTimer(nullptr, identifier);
    runningTimers().erase(identifier);
}

}  // namespace win
