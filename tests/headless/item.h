// One control of a headless window: its plain state, and how it takes the input that the user, the mouse and
// the dialog's keyboard handling pass on to it.
#pragma once

#include "tests/headless/dialog_template.h"
#include "ui/control.h"

namespace headless {

class Window;

/// How a control gets the focus.
enum class FocusBy { program, mouse, keyboard };

/// What every kind of control keeps.
struct ItemState {
    bool enabled = true;
    bool visible = true;
    bool tabStop = false;
    std::wstring caption;
    std::wstring tooltip;
    std::wstring description;
    ui::Rect bounds;
    std::intptr_t handle = 0;
};

class Item {
public:
    Item(Window& window, const TemplateControl& source);
    Item(const Item&) = delete;
    Item& operator=(const Item&) = delete;
    virtual ~Item() = default;

    [[nodiscard]] virtual ui::Control& control() = 0;

    /// Whether the control can have the focus while it is enabled and visible.
    [[nodiscard]] virtual bool focusable() const { return false; }
    /// Whether the control takes this key where the dialog has a use for it, too (Tab, Enter, Esc, arrows).
    [[nodiscard]] virtual bool wantsKey(const ui::KeyEvent&) const { return false; }
    /// Whether letters are typed into the control; else they are access keys even without Alt.
    [[nodiscard]] virtual bool wantsCharacters() const { return false; }
    /// Whether Enter presses this control, and not the dialog's default button, while it has the focus.
    [[nodiscard]] virtual bool isPushButton() const { return false; }

    /// A click with the mouse, the space bar or the access key.
    virtual void press() {}
    /// The left button at this pixel of the control; it has the focus by now where it can.
    virtual void click(const ui::MouseEvent&) { press(); }
    /// A key that reached the control, after `onKeyDown`.
    virtual void handleKey(const ui::KeyEvent&) {}
    /// A typed character.
    virtual void handleCharacter(wchar_t) {}
    virtual void focusGained(FocusBy) {}
    virtual void focusLost() {}
    /// The focus has arrived where it went.
    virtual void focusGone() {}

    [[nodiscard]] Window& window() const { return window_; }
    [[nodiscard]] const TemplateControl& source() const { return source_; }
    /// Enabled and visible.
    [[nodiscard]] bool usable() const { return state.enabled && state.visible; }
    [[nodiscard]] bool startsGroup() const { return source_.has("WS_GROUP"); }
    /// The letter behind the "&" of the caption, in lower case; 0 where there is none.
    [[nodiscard]] wchar_t accessKey() const;

    /// Raises `onKeyDown` and, where its handler leaves the key, handles it.
    void takeKey(ui::KeyEvent event);

    ItemState state;

private:
    Window& window_;
    const TemplateControl& source_;
};

// What the shared part of all kinds does; the window sees to the focus.
void setItemEnabled(Item& item, bool enabled);
void setItemVisible(Item& item, bool visible);
[[nodiscard]] bool itemHasFocus(const Item& item);
void focusItem(Item& item);

/// The access key in a caption, in lower case; "&&" is a plain ampersand. 0 where there is none.
[[nodiscard]] wchar_t accessKeyOf(const std::wstring& caption);

/// A class of the vocabulary in memory. A kind derives from it and adds what is its own.
template <class Ui>
class Typed : public Ui, public Item {
public:
    Typed(Window& window, const TemplateControl& source) : Item(window, source) {}

    [[nodiscard]] ui::Control& control() override { return *this; }

    [[nodiscard]] bool enabled() const override { return state.enabled; }
    void setEnabled(bool enabled) override { setItemEnabled(*this, enabled); }
    [[nodiscard]] bool visible() const override { return state.visible; }
    void setVisible(bool visible) override { setItemVisible(*this, visible); }
    [[nodiscard]] std::wstring text() const override { return state.caption; }
    void setText(const std::wstring& text) override { state.caption = text; }
    [[nodiscard]] bool hasFocus() const override { return itemHasFocus(*this); }
    void setFocus() override { focusItem(*this); }
    [[nodiscard]] ui::Rect bounds() const override { return state.bounds; }
    void move(const ui::Rect& bounds) override { state.bounds = bounds; }
    [[nodiscard]] std::wstring tooltip() const override { return state.tooltip; }
    void setTooltip(const std::wstring& text) override { state.tooltip = text; }
    [[nodiscard]] std::wstring description() const override { return state.description; }
    void setDescription(const std::wstring& text) override { state.description = text; }
    [[nodiscard]] std::intptr_t handle() const override { return state.handle; }

protected:
    /// Raises one of the control's events where somebody listens.
    template <class... Arguments>
    static void raise(const std::function<void(Arguments...)>& event, Arguments... arguments) {
        if (event) event(arguments...);
    }
};

}  // namespace headless
