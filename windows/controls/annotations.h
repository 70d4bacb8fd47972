// What screen readers are told of a control beyond what the control says itself. The system keeps it for a
// window until it is taken back, which has to happen before the window goes.
#pragma once

#include <windows.h>

#include <oleacc.h>

#include <string>

namespace win {

class Annotations {
public:
    Annotations() = default;
    Annotations(const Annotations&) = delete;
    Annotations& operator=(const Annotations&) = delete;
    ~Annotations();

    struct Words {
        std::wstring description;
        std::wstring value;
    };
    /// Empty words leave what the control says itself. False where the system keeps no words.
    bool tell(HWND control, const Words& words) noexcept;
    void forget(HWND control) noexcept;

private:
    [[nodiscard]] bool connected() noexcept;

    IAccPropServices* service_ = nullptr;
};

/// Whether a message asks for the control's part in the accessibility interfaces.
[[nodiscard]] bool asksForObject(UINT message, LPARAM lParam) noexcept;

}  // namespace win
