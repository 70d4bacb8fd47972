#include "windows/controls/timer.h"

#include "windows/controls/window.h"

namespace win {

Timer::~Timer() {
    if (window_ == nullptr) return;
    Timer::stop();
    window_->forget(*this);
}

void Timer::start(int milliseconds) {
    runs_ =
        handle() != nullptr && SetTimer(handle(), identifier_, static_cast<UINT>(milliseconds), nullptr) != 0;
}

void Timer::stop() {
    runs_ = false;
    if (handle() != nullptr) KillTimer(handle(), identifier_);
}

void Timer::tick() {
    if (runs_) raise(onTimer);
}

HWND Timer::handle() const { return window_ != nullptr ? window_->window() : nullptr; }

}  // namespace win
