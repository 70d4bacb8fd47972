// What every control of a window has in common.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "ui/geometry.h"

namespace ui {

/// The kinds of control that a window can hand out, one for each class of the vocabulary.
enum class Kind {
    label,
    button,
    checkBox,
    optionButton,
    swatch,
    picture,
    textBox,
    upDown,
    comboBox,
    listBox,
    tabStrip,
    grid,
    richText,
    toolbar,
    frame,
    line,
};

/// Modifier keys held during a key or mouse event, as a sum.
namespace modifier {
constexpr int shift = 1;
constexpr int control = 2;
constexpr int alt = 4;
}  // namespace modifier

/// A mouse press or move. `x` and `y` are pixels in the control. A handler that sets `button` and
/// `modifiers` to 0 takes the press away from the control.
struct MouseEvent {
    int button = 0;  ///< 0 none, 1 left, 2 right, 4 middle
    int modifiers = 0;
    int x = 0;
    int y = 0;
};

/// A key press. `key` is a virtual-key code. A handler that sets it to 0 takes the key away from the control.
struct KeyEvent {
    int key = 0;
    int modifiers = 0;
};

class Control {
public:
    Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control() = default;

    [[nodiscard]] virtual bool enabled() const = 0;
    virtual void setEnabled(bool enabled) = 0;
    [[nodiscard]] virtual bool visible() const = 0;
    virtual void setVisible(bool visible) = 0;

    /// The caption of a label, button or frame; the content of a text box. An access key is marked by "&".
    [[nodiscard]] virtual std::wstring text() const = 0;
    virtual void setText(const std::wstring& text) = 0;

    [[nodiscard]] virtual bool hasFocus() const = 0;
    /// Does nothing where the control is disabled or hidden.
    virtual void setFocus() = 0;

    [[nodiscard]] virtual Rect bounds() const = 0;
    virtual void move(const Rect& bounds) = 0;

    /// The tooltip. A control without a caption bears it as its accessible name, too.
    [[nodiscard]] virtual std::wstring tooltip() const = 0;
    virtual void setTooltip(const std::wstring& text) = 0;

    /// What screen readers tell beside the name: a field's range and unit, what a button is for.
    [[nodiscard]] virtual std::wstring description() const = 0;
    virtual void setDescription(const std::wstring& text) = 0;

    /// The number under which other programs can send the control messages (a window handle); never 0.
    [[nodiscard]] virtual std::intptr_t handle() const = 0;

    std::function<void()> onGotFocus;
    std::function<void(MouseEvent&)> onMouseDown;
    std::function<void(MouseEvent&)> onMouseMove;
    std::function<void(KeyEvent&)> onKeyDown;
};

}  // namespace ui
