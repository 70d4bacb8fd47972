// The plain controls: label, button, check box, option, swatch, picture, frame, text box, combo.
// Handlers run at once, inside the call or user action that caused them, on the user-interface thread.
#pragma once

#include "ui/control.h"
#include "ui/drawing.h"

namespace ui {

class Label : public Control {
public:
    static constexpr Kind kind = Kind::label;
    /// Has screen readers say the text, which tells what goes on.
    virtual void announce() = 0;
};

/// A titled frame around other controls.
class Frame : public Control {
public:
    static constexpr Kind kind = Kind::frame;
};

/// A separator line.
class Line : public Control {
public:
    static constexpr Kind kind = Kind::line;
};

/// An icon that nobody can press.
class Picture : public Control {
public:
    static constexpr Kind kind = Kind::picture;
};

class Button : public Control {
public:
    static constexpr Kind kind = Kind::button;
    /// A press by mouse, keyboard or access key; never raised while the button is disabled.
    std::function<void()> onClick;
};

class CheckBox : public Control {
public:
    static constexpr Kind kind = Kind::checkBox;
    [[nodiscard]] virtual bool checked() const = 0;
    /// Raises `onClick` where the state changes, as a press by the user does.
    virtual void setChecked(bool checked) = 0;
    std::function<void()> onClick;
};

/// One of a group of which at most one is selected. The group is that of the dialog template.
class OptionButton : public Control {
public:
    static constexpr Kind kind = Kind::optionButton;
    [[nodiscard]] virtual bool selected() const = 0;
    /// Selecting deselects the others of the group and raises `onClick` of this option where it was not
    /// selected before; deselecting raises nothing.
    virtual void setSelected(bool selected) = 0;
    std::function<void()> onClick;
};

/// A coloured field with a caption that can be clicked, and reached and pressed by keyboard.
class Swatch : public Control {
public:
    static constexpr Kind kind = Kind::swatch;
    [[nodiscard]] virtual Colour colour() const = 0;
    virtual void setColour(Colour colour) = 0;
    std::function<void()> onClick;
};

/// A click that brings the focus to a box with an `onGotFocus` handler does not move the caret: caret and
/// selection are what the handler makes them. Without a handler the caret goes where the click was.
class TextBox : public Control {
public:
    static constexpr Kind kind = Kind::textBox;
    /// Position of the caret or of the selection's start; 0 is before the first character.
    [[nodiscard]] virtual int selectionStart() const = 0;
    [[nodiscard]] virtual int selectionLength() const = 0;
    virtual void select(int start, int length) = 0;
    /// Raised after each change of the text, by the user or by `setText` with another text.
    std::function<void()> onChange;
};

/// A drop-down list without free text.
class ComboBox : public Control {
public:
    static constexpr Kind kind = Kind::comboBox;
    virtual void clear() = 0;
    virtual void add(const std::wstring& item) = 0;
    [[nodiscard]] virtual int count() const = 0;
    [[nodiscard]] virtual std::wstring item(int index) const = 0;
    /// -1 means that nothing is selected.
    [[nodiscard]] virtual int selectedIndex() const = 0;
    /// An index out of range selects nothing. Raises nothing: `onClick` is the user's choice alone.
    virtual void select(int index) = 0;
    [[nodiscard]] virtual bool droppedDown() const = 0;
    /// Whether the mouse pointer is over the combo itself (not over its list).
    [[nodiscard]] virtual bool pointerInside() const = 0;
    /// Draws upon the combo as it looks now; the next repainting covers it.
    virtual void draw(const Strokes& strokes) = 0;
    /// The user chose an entry.
    std::function<void()> onClick;
};

}  // namespace ui
