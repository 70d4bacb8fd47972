// The up/down control: two small arrows that hold a bounded whole number.
#pragma once

#include <stdexcept>

#include "ui/control.h"

namespace ui {

/// Steps by 1 and stops at its bounds. New controls are bounded by 0 and 100 and stand at 0. The control
/// writes nothing into the text box beside it: who links the two does that in `onChange`.
class UpDown : public Control {
public:
    static constexpr Kind kind = Kind::upDown;

    /// Inclusive. The value becomes `minimum`; raises nothing.
    virtual void setBounds(std::int32_t minimum, std::int32_t maximum) = 0;
    [[nodiscard]] virtual std::int32_t minimum() const = 0;
    [[nodiscard]] virtual std::int32_t maximum() const = 0;

    [[nodiscard]] virtual std::int32_t value() const = 0;
    /// Throws std::out_of_range and changes nothing where `value` lies outside the bounds.
    void setValue(std::int32_t value) {
        if (value < minimum() || value > maximum()) throw std::out_of_range("Invalid property value");
        if (value == this->value()) return;
        moveTo(value);
        if (onChange) onChange();
    }

    /// Raised after each change of the value, by the arrows or by `setValue` with another value.
    std::function<void()> onChange;

protected:
    /// Takes over a value within the bounds; raises nothing.
    virtual void moveTo(std::int32_t value) = 0;
};

}  // namespace ui
