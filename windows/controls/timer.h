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

    void start(int milliseconds) override;
    void stop() override;

    [[nodiscard]] std::uintptr_t identifier() const { return identifier_; }
    /// Raises the event. A tick that was on its way when the timer stopped is none.
    void tick();
    /// The window has gone: the timer never ticks again.
    void forgetWindow() { window_ = nullptr; }

private:
    /// Null where the window has gone.
    [[nodiscard]] HWND handle() const;

    Window* window_;
    std::uintptr_t identifier_;
    bool runs_ = false;
};

}  // namespace win
