// An up/down control in memory.
#pragma once

#include "tests/headless/item.h"
#include "ui/updown.h"

namespace headless {

class UpDown : public Typed<ui::UpDown> {
public:
    using Typed::Typed;
    void setBounds(std::int32_t minimum, std::int32_t maximum) override {
        minimum_ = value_ = minimum;
        maximum_ = maximum;
    }
    [[nodiscard]] std::int32_t minimum() const override { return minimum_; }
    [[nodiscard]] std::int32_t maximum() const override { return maximum_; }
    [[nodiscard]] std::int32_t value() const override { return value_; }

    /// One press of an arrow; stops at the bounds.
    void step(bool up) {
        if (value_ != (up ? maximum_ : minimum_)) setValue(value_ + (up ? 1 : -1));
    }

protected:
    void moveTo(std::int32_t value) override { value_ = value; }

private:
    std::int32_t minimum_ = 0;
    std::int32_t maximum_ = 100;
    std::int32_t value_ = 0;
};

}  // namespace headless
