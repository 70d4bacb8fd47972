// Messages to other windows, the pointer, pending events, and timers without a window.
#pragma once

#include "common/platform.h"

namespace win {

class Desktop : public vexa::Desktop {
public:
    bool sendMessage(std::intptr_t window, std::uint32_t message, std::uintptr_t wParam,
                     std::intptr_t lParam) override;
    void setPointer(vexa::PointerShape shape) override;
    void doEvents() override;
};

/// Shows the pointer's shape again, which the system forgets when the mouse moves. False while it is the
/// standard one: then windows show their own.
bool keepPointer() noexcept;

class SystemTimers : public vexa::SystemTimers {
public:
    ~SystemTimers() override;
    /// `callback` must let nothing out. A tick that was on its way when its timer was killed still comes.
    std::uintptr_t setTimer(std::uint32_t milliseconds, Callback callback) override;
    void killTimer(std::uintptr_t identifier) override;
};

}  // namespace win
