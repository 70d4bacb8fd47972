// A list box of multiple selection: the system's, with its Shift and Ctrl clicks.
#pragma once

#include "ui/listbox.h"
#include "windows/controls/control_base.h"

namespace win {

class ListBox : public ControlOf<ui::ListBox> {
public:
    using ControlOf::ControlOf;
    int add(const std::wstring& item) override;
    void remove(int index) override;
    [[nodiscard]] int count() const override;
    [[nodiscard]] std::wstring item(int index) const override;
    [[nodiscard]] bool selected(int index) const override;
    void setSelected(int index, bool selected) override;
    void selectAll(bool selected) override;
    void setRedraw(bool redraw) override;

private:
    /// The index as a message's parameter. Throws std::out_of_range.
    [[nodiscard]] WPARAM checked(int index) const;

    bool frozen_ = false;
};

}  // namespace win
