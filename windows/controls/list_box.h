// A list box of multiple selection: the system's, with its Shift and Ctrl clicks.
#pragma once

#include "ui/listbox.h"
#include "windows/controls/control_base.h"

namespace win {

class ListBox : public ControlOf<ui::ListBox> {
public:
    using ControlOf::ControlOf;
    int add(const std::wstring& item) override;
    void remove(int index) override { send(LB_DELETESTRING, checked(index)); }
    [[nodiscard]] int count() const override { return static_cast<int>(send(LB_GETCOUNT)); }
    [[nodiscard]] std::wstring item(int index) const override;
    [[nodiscard]] bool selected(int index) const override { return send(LB_GETSEL, checked(index)) > 0; }
    void setSelected(int index, bool selected) override {
        send(LB_SETSEL, selected, static_cast<LPARAM>(checked(index)));
    }
    void selectAll(bool selected) override { send(LB_SETSEL, selected, -1); }
    void setRedraw(bool redraw) override;

private:
    /// The index as a message's parameter. Throws std::out_of_range.
    [[nodiscard]] WPARAM checked(int index) const;

    bool frozen_ = false;
};

}  // namespace win
