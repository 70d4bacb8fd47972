#include "windows/controls/timer.h"

#include "windows/controls/window.h"

namespace win {

Timer::~Timer() {
    if (window_ == nullptr) return;
    KillTimer(window_->window(), identifier_);
    window_->forget(*this);
}

void Timer::setInterval(int milliseconds) {
    interval_ = milliseconds;
    restart();
}

void Timer::setEnabled(bool enabled) {
    if (enabled == enabled_) return;
    enabled_ = enabled;
    restart();
}

void Timer::restart() {
    if (window_ == nullptr || window_->window() == nullptr) return;
    KillTimer(window_->window(), identifier_);
    if (enabled_ && interval_ > 0)
        SetTimer(window_->window(), identifier_, static_cast<UINT>(interval_), nullptr);
}

}  // namespace win
