// An up/down control: the system's, without its own link to a text box.
#pragma once

#include "ui/updown.h"
#include "windows/controls/control_base.h"

namespace win {

class UpDown : public ControlOf<ui::UpDown> {
public:
    UpDown(Window& window, HWND handle);
    void onScroll(int code) override;
    void setBounds(std::int32_t minimum, std::int32_t maximum) override;
    [[nodiscard]] std::int32_t minimum() const override { return minimum_; }
    [[nodiscard]] std::int32_t maximum() const override { return maximum_; }
    [[nodiscard]] std::int32_t value() const override { return value_; }

protected:
    void moveTo(std::int32_t value) override;

private:
    std::int32_t minimum_ = 0;
    std::int32_t maximum_ = 0;
    std::int32_t value_ = 0;  ///< the value that handlers have been told
};

}  // namespace win
