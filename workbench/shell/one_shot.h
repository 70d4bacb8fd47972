// A timer that fires once, through the thread's message loop.
#pragma once

#include <functional>

#include "workbench/shell/window.h"

namespace workbench {

class OneShot final : public Window {
public:
    OneShot();
    ~OneShot() override { destroy(); }
    /// Replaces what was planned before.
    void start(unsigned milliseconds, std::function<void()> action);
    void stop();

private:
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    std::function<void()> action_;
};

}  // namespace workbench
