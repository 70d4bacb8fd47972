#include "windows/controls/up_down.h"

#include <commctrl.h>

namespace win {

UpDown::UpDown(Window& window, HWND handle) : ControlOf(window, handle) {
    // However long an arrow is held, it steps by one.
    UDACCEL steady{0, 1};
    send(UDM_SETACCEL, 1, reinterpret_cast<LPARAM>(&steady));
    setBounds(0, 100);
}

void UpDown::onScroll(int code) {
    const auto position = static_cast<std::int32_t>(send(UDM_GETPOS32));
    if (code != SB_THUMBPOSITION || position == value_) return;
    value_ = position;
    raise(onChange);
}

void UpDown::setBounds(std::int32_t minimum, std::int32_t maximum) {
    minimum_ = minimum;
    maximum_ = maximum;
    send(UDM_SETRANGE32, static_cast<WPARAM>(minimum), maximum);
    moveTo(minimum);
}

void UpDown::moveTo(std::int32_t value) {
    value_ = value;
    send(UDM_SETPOS32, 0, value);
}

}  // namespace win
