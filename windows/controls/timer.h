// A periodic timer of a window.
#pragma once

#include "ui/window.h"

namespace win {

class Window;

class Timer : public ui::Timer {
public:
    /// `identifier` is unique in the window.
    Timer(Window& window, std::uintptr_t identifier) : window_(&window), identifier_(identifier) {}
    ~Timer() override;

    void setInterval(int milliseconds) override;
    [[nodiscard]] int interval() const override { return interval_; }
    void setEnabled(bool enabled) override;
    [[nodiscard]] bool enabled() const override { return enabled_; }

    [[nodiscard]] std::uintptr_t identifier() const { return identifier_; }
    /// The window has gone: the timer never ticks again.
    void forgetWindow() { window_ = nullptr; }

private:
    void restart();

    Window* window_;
    std::uintptr_t identifier_;
    int interval_ = 0;
    bool enabled_ = false;
};

}  // namespace win
