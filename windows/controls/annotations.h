// What screen readers are told of a control beyond what the control says itself. The system keeps it for a
// window until it is taken back, which has to happen before the window goes.
#pragma once

#include <windows.h>

#include <oleacc.h>

#include <string>
#include <vector>

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
        /// Its text tells what goes on: readers say it when it changes.
        bool live = false;
    };
    /// Empty words leave what the control says itself. False where the system keeps no words.
    bool tell(HWND control, const Words& words) noexcept;
    void forget(HWND control) noexcept;

    /// The names of a control's parts, in their order.
    void nameParts(HWND control, const std::vector<std::wstring>& names) noexcept;
    void forgetParts(HWND control, std::size_t count) noexcept;

private:
    [[nodiscard]] bool connected() noexcept;

    IAccPropServices* service_ = nullptr;
};

/// Whether a message asks for the control's part in the accessibility interfaces.
[[nodiscard]] bool asksForObject(UINT message, LPARAM lParam) noexcept;

}  // namespace win
