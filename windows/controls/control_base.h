// The base of all wrappers around the controls of a dialog template. A wrapper hears what its control tells
// the dialog and sees every message on its way to the control; the dialog itself only routes.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <string>

#include "ui/control.h"
#include "windows/controls/message_hook.h"
#include "windows/platform/text.h"

namespace win {

class Window;

/// Calls a handler, if there is one. The call keeps its own copy: a handler may replace or destroy itself.
template <class... Parameters, class... Arguments>
void raise(const std::function<void(Parameters...)>& event, Arguments&&... arguments) {
    if (!event) return;
    const auto running = event;
    running(std::forward<Arguments>(arguments)...);
}

class ControlBase : private MessageListener {
public:
    /// `control` is the wrapper itself.
    ControlBase(Window& window, HWND handle, ui::Control& control);
    ControlBase(const ControlBase&) = delete;
    ControlBase& operator=(const ControlBase&) = delete;
    virtual ~ControlBase();

    [[nodiscard]] ui::Control& asControl() { return control_; }
    /// Null once the control's window is gone.
    [[nodiscard]] HWND window() const { return handle_; }

    // Hooks for the kinds of control, called by the dialog. Each may throw; nothing leaves the dialog.
    /// WM_COMMAND with this notification code.
    virtual void onCommand(int /*code*/) {}
    /// WM_COMMAND of a part of the control, which has an identifier of its own.
    virtual void onButton(int /*identifier*/) {}
    /// WM_NOTIFY; a result is the answer to the control.
    virtual std::optional<LRESULT> onNotify(NMHDR& /*notification*/) { return std::nullopt; }
    /// The window of the tips that the control shows for its parts, which notifies the dialog itself.
    [[nodiscard]] virtual HWND tipWindow() const { return nullptr; }
    /// WM_DRAWITEM; true where the wrapper has handled it.
    virtual bool onDrawItem(const DRAWITEMSTRUCT& /*item*/) { return false; }
    /// WM_HSCROLL or WM_VSCROLL with this scroll code.
    virtual void onScroll(int /*code*/) {}
    /// What lies behind another control of the dialog, where that is this control's to say; else null.
    virtual HBRUSH backgroundFor(HDC /*canvas*/, HWND /*control*/) { return nullptr; }
    /// Paints the dialog's background where this control is part of it; else false.
    virtual bool paintBackground(HDC /*canvas*/) { return false; }
    /// The system's colours or its theme have changed.
    virtual void coloursChanged() {}
    /// Another resolution: places and font have been scaled already.
    virtual void rescaled() {}
    /// What screen readers tell as the control's value, where the control itself tells none.
    [[nodiscard]] virtual std::wstring accessibleValue() const { return {}; }
    /// Whether screen readers say its text by themselves when that changes.
    [[nodiscard]] virtual bool isLive() const { return false; }
    /// Any message to the control, before it gets it; a result keeps it away from the control.
    virtual std::optional<LRESULT> onMessage(UINT /*message*/, WPARAM /*wParam*/, LPARAM /*lParam*/) {
        return std::nullopt;
    }

protected:
    [[nodiscard]] Window& dialog() const { return dialog_; }
    LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return SendMessageW(handle_, message, wParam, lParam);
    }
    [[nodiscard]] DWORD style() const { return static_cast<DWORD>(GetWindowLongW(handle_, GWL_STYLE)); }
    /// The window's own text, whatever the control makes of it.
    [[nodiscard]] std::wstring windowText() const { return win::windowText(handle_); }

    // What all kinds do alike.
    [[nodiscard]] bool isEnabled() const { return IsWindowEnabled(handle_) != FALSE; }
    void enable(bool enabled);
    [[nodiscard]] bool isShown() const { return (style() & WS_VISIBLE) != 0; }
    void show(bool visible);
    [[nodiscard]] bool isFocused() const;
    void focus();
    [[nodiscard]] ui::Rect place() const;
    void placeAt(const ui::Rect& bounds);
    [[nodiscard]] const std::wstring& tip() const { return tip_; }
    void setTip(const std::wstring& text);
    [[nodiscard]] const std::wstring& words() const { return description_; }
    void describe(const std::wstring& text);
    /// Tells screen readers anew, where one has asked.
    void tellReaders();

private:
    [[nodiscard]] std::optional<LRESULT> heard(UINT message, WPARAM wParam, LPARAM lParam) override;
    void windowGoes() noexcept override { handle_ = nullptr; }
    [[nodiscard]] MessageWatch* watch() const noexcept override;
    [[nodiscard]] bool mouseDownTaken(int button, LPARAM lParam);
    [[nodiscard]] bool keyTaken(int key);
    void mouseMoved(WPARAM wParam, LPARAM lParam);
    void leaveFocus();
    void answerReader();
    void forgetReaders() noexcept;

    Window& dialog_;
    HWND handle_;
    ui::Control& control_;
    std::wstring tip_;
    /// The tooltip control knows the tip.
    bool tipReady_ = false;
    std::wstring description_;
    /// A screen reader has asked, and the system keeps words for the control.
    bool annotated_ = false;
};

/// A wrapper that speaks an interface of the vocabulary; the kinds add what is theirs.
template <class Interface>
class ControlOf : public Interface, public ControlBase {
public:
    ControlOf(Window& window, HWND handle) : ControlBase(window, handle, *this) {}

    [[nodiscard]] bool enabled() const override { return isEnabled(); }
    void setEnabled(bool enabled) override { enable(enabled); }
    [[nodiscard]] bool visible() const override { return isShown(); }
    void setVisible(bool visible) override { show(visible); }
    [[nodiscard]] std::wstring text() const override { return windowText(); }
    void setText(const std::wstring& text) override { SetWindowTextW(window(), text.c_str()); }
    [[nodiscard]] bool hasFocus() const override { return isFocused(); }
    void setFocus() override { focus(); }
    [[nodiscard]] ui::Rect bounds() const override { return place(); }
    void move(const ui::Rect& bounds) override { placeAt(bounds); }
    [[nodiscard]] std::wstring tooltip() const override { return tip(); }
    void setTooltip(const std::wstring& text) override { setTip(text); }
    [[nodiscard]] std::wstring description() const override { return words(); }
    void setDescription(const std::wstring& text) override { describe(text); }
    [[nodiscard]] std::intptr_t handle() const override { return reinterpret_cast<std::intptr_t>(window()); }
};

/// A wrapper that keeps the caption itself: the window's text, which screen readers tell, may be another one.
template <class Interface>
class Captioned : public ControlOf<Interface> {
public:
    Captioned(Window& window, HWND handle)
        : ControlOf<Interface>(window, handle), caption_(this->windowText()) {}

    [[nodiscard]] std::wstring text() const override { return caption_; }
    void setText(const std::wstring& text) override {
        caption_ = text;
        nameWindow();
    }
    void setTooltip(const std::wstring& text) override {
        ControlOf<Interface>::setTooltip(text);
        nameWindow();
    }

protected:
    /// Gives the window the text that caption and tooltip make.
    virtual void nameWindow() = 0;
    [[nodiscard]] const std::wstring& caption() const { return caption_; }

private:
    std::wstring caption_;
};

}  // namespace win
