#include "workbench/shell/one_shot.h"

#include <utility>

namespace workbench {
namespace {

constexpr UINT_PTR TIMER = 1;

}  // namespace

OneShot::OneShot() { create(L"QuillmarkWorkbenchTimer", {}, {}, HWND_MESSAGE); }

void OneShot::start(unsigned milliseconds, std::function<void()> action) {
    action_ = std::move(action);
    SetTimer(handle(), TIMER, milliseconds, nullptr);
}

void OneShot::stop() {
    KillTimer(handle(), TIMER);
    action_ = nullptr;
}

LRESULT OneShot::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_TIMER) return Window::onMessage(message, wParam, lParam);
    KillTimer(handle(), TIMER);
    // Taken out first: the action may plan the next one.
    if (const auto action = std::exchange(action_, nullptr)) action();
    return 0;
}

}  // namespace workbench
