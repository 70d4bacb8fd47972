// A list of texts of which any number can be selected.
#pragma once

#include "ui/control.h"

namespace ui {

/// Keeps its items in the order in which they were added. Indexes count from 0; an index out of range throws
/// std::out_of_range.
class ListBox : public Control {
public:
    static constexpr Kind kind = Kind::listBox;

    /// Returns the new item's index. It is not selected.
    virtual int add(const std::wstring& item) = 0;
    virtual void remove(int index) = 0;
    [[nodiscard]] virtual int count() const = 0;
    [[nodiscard]] virtual std::wstring item(int index) const = 0;

    [[nodiscard]] virtual bool selected(int index) const = 0;
    virtual void setSelected(int index, bool selected) = 0;
    /// Selects every item or none.
    virtual void selectAll(bool selected) = 0;

    /// With false the control stops painting until it is set to true again.
    virtual void setRedraw(bool redraw) = 0;
};

/// Keeps a list from painting while many of its items change.
class ListBoxUpdate {
public:
    explicit ListBoxUpdate(ListBox& list) : list_(list) { list_.setRedraw(false); }
    ListBoxUpdate(const ListBoxUpdate&) = delete;
    ListBoxUpdate& operator=(const ListBoxUpdate&) = delete;
    ~ListBoxUpdate() { list_.setRedraw(true); }

private:
    ListBox& list_;
};

}  // namespace ui
