// A strip of tabs above a page. Which controls are visible on which tab is the form's business.
#pragma once

#include "ui/control.h"

namespace ui {

class TabStrip : public Control {
public:
    static constexpr Kind kind = Kind::tabStrip;

    /// The first tab becomes current at once and raises nothing.
    virtual void addTab(const std::wstring& caption) = 0;
    [[nodiscard]] virtual int count() const = 0;
    [[nodiscard]] virtual std::wstring tabCaption(int index) const = 0;

    /// Counts from 0; -1 while there are no tabs.
    [[nodiscard]] virtual int current() const = 0;
    /// Raises `onClick` where another tab becomes current, as the user's choice does. An index out of range
    /// changes nothing.
    virtual void setCurrent(int index) = 0;

    /// The next tab, or the one before (-1), around the ends.
    void step(int by) {
        if (count() > 0) setCurrent((current() + by + count()) % count());
    }

    /// Another tab became current.
    std::function<void()> onClick;
};

}  // namespace ui
