// A bar of small buttons. They are told apart by their index, which counts from 1 and includes separators.
#pragma once

#include <vector>

#include "ui/control.h"

namespace ui {

struct ToolbarMenuEntry {
    std::wstring text;
    std::wstring key;  ///< what `onMenuClick` tells
};

struct ToolbarButton {
    enum class Type {
        push,
        check,        ///< a click presses it or releases it
        separator,    ///< a narrow gap
        placeholder,  ///< a gap with room for another control
        dropDown,     ///< a click opens its menu
    };
    Type type = Type::push;
    std::wstring caption;
    /// Also the accessible name of a button without a caption.
    std::wstring tooltip;
    /// Identifier of the icon in the resources; 0 for none.
    int icon = 0;
    std::vector<ToolbarMenuEntry> menu;
};

/// An index out of range throws std::out_of_range.
class Toolbar : public Control {
public:
    static constexpr Kind kind = Kind::toolbar;

    /// Replaces the buttons; all are enabled and none is pressed.
    virtual void setButtons(std::vector<ToolbarButton> buttons) = 0;
    [[nodiscard]] virtual int count() const = 0;

    [[nodiscard]] virtual bool pressed(int index) const = 0;
    virtual void setPressed(int index, bool pressed) = 0;
    [[nodiscard]] virtual bool buttonEnabled(int index) const = 0;
    virtual void setButtonEnabled(int index, bool enabled) = 0;
    /// Pixels in the toolbar.
    [[nodiscard]] virtual Rect buttonBounds(int index) const = 0;
    /// Pixels; the buttons behind it move.
    virtual void setButtonWidth(int index, int width) = 0;

    /// The user clicked an enabled push or check button; a check button has changed already.
    std::function<void(int index)> onButtonClick;
    /// The user chose a menu entry, whose key is told.
    std::function<void(const std::wstring& key)> onMenuClick;
};

}  // namespace ui
