// A real dialog or page. Its procedure only routes: what the controls tell goes to their wrappers.
#pragma once

#include <windows.h>

#include <map>
#include <memory>
#include <vector>

#include "ui/window.h"
#include "windows/controls/control_base.h"
#include "windows/controls/timer.h"
#include "windows/controls/tooltips.h"

namespace win {

class Screen;
class TabStrip;

class Window : public ui::Window, private MessageListener {
public:
    enum class Role { dialog, page };

    /// Makes the hidden window from the template. `parent` owns a dialog and holds a page. `owner` is the
    /// window of the program that opened a dialog; null for a page. Throws vexa::Error where the system
    /// makes no window.
    Window(Screen& screen, Role role, int templateIdentifier, HWND parent, Window* owner);
    ~Window() override;

    [[nodiscard]] std::unique_ptr<ui::Timer> createTimer() override;
    [[nodiscard]] std::wstring caption() const override { return windowText(handle_); }
    [[nodiscard]] ui::Size outerSize() const override;
    void setOuterSize(const ui::Size& size) override;
    [[nodiscard]] ui::Size innerSize() const override;
    [[nodiscard]] std::intptr_t handle() const override { return reinterpret_cast<std::intptr_t>(handle_); }
    [[nodiscard]] double magnification() const override;
    void runModal(ui::Form& form, const std::function<void()>& load) override;
    void close() override;
    [[nodiscard]] bool isOpen() const override { return open_ && handle_ != nullptr; }

    // For the controls.
    /// Null once the window is gone.
    [[nodiscard]] HWND window() const { return handle_; }
    [[nodiscard]] Screen& screen() const { return screen_; }
    [[nodiscard]] Tooltips& tooltips() { return *tooltips_; }
    /// The wrapper of the control with this identifier; null where nobody has asked for it yet.
    [[nodiscard]] ControlBase* find(int identifier) const;
    /// The control that has the focus, or will have it once the window is shown.
    [[nodiscard]] HWND focus() const { return IsWindowVisible(handle_) ? GetFocus() : firstFocus_; }
    void setFocus(HWND control);
    /// Draws the window as it is by now, also while it is being loaded; no events run.
    void present();
    /// Keys that mean the dialog, whichever of its controls has the focus.
    [[nodiscard]] bool wantsKey(const MSG& message) const;
    /// True where the key was one of those.
    bool takeKey(WPARAM key);
    /// A system metric at the window's resolution.
    [[nodiscard]] int metric(int index) const;
    /// Pixels per inch of the window's monitor, more where the user wants bigger text.
    [[nodiscard]] int dpi() const { return dpi_; }
    /// Percent.
    [[nodiscard]] int textScale() const { return textScale_; }
    /// Scales the controls to another resolution.
    void takeDpi(int dpi);
    [[nodiscard]] int templateIdentifier() const { return templateIdentifier_; }
    /// Who is told around each message; null where nobody is.
    [[nodiscard]] MessageWatch* watch() const noexcept override { return watch_; }

    // For the screen and the timers.
    /// Has `watch` told around each message to the window or to one of its controls. It stays as long as the
    /// window. Throws std::bad_alloc.
    void watchMessages(MessageWatch& watch);
    [[nodiscard]] Role role() const { return role_; }
    /// True where this window was opened, at any depth, from `other`.
    [[nodiscard]] bool descendsFrom(const Window& other) const;
    void forgetOwner(const Window& owner);
    void forget(const Timer& timer) { std::erase(timers_, &timer); }

protected:
    [[nodiscard]] ui::Control& bind(ui::Kind kind, int identifier) override;

private:
    [[nodiscard]] std::optional<LRESULT> heard(UINT, WPARAM, LPARAM) override { return std::nullopt; }
    void windowGoes() noexcept override {}
    static INT_PTR CALLBACK procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    /// The answer to a message; nothing leaves it to the system's own handling.
    [[nodiscard]] std::optional<LRESULT> handle(UINT message, WPARAM wParam, LPARAM lParam);
    [[nodiscard]] std::optional<LRESULT> route(UINT message, WPARAM wParam, LPARAM lParam);
    /// The brush behind a control that lies on another one.
    [[nodiscard]] std::optional<LRESULT> background(HDC canvas, HWND control);
    [[nodiscard]] std::optional<LRESULT> eraseBackground(HDC canvas);
    /// The wrapper whose control shows its tips in this window; null where none does.
    [[nodiscard]] ControlBase* ownerOfTips(HWND tips) const;
    /// `sender` is the control that tells of itself or of a part of it; null where a key tells it.
    void command(WPARAM wParam, HWND sender);
    void tick(std::uintptr_t identifier);
    void scripted();
    void vanished();
    void monitorChanged(int dpi, const RECT& place);
    void enlargeForText();
    void refreshColours();
    void tellColours();
    void showIcon();
    [[nodiscard]] TabStrip* tabs() const;
    [[nodiscard]] std::optional<LRESULT> showHelp();
    void show();
    void pump();

    Screen& screen_;
    Role role_;
    int templateIdentifier_;
    Window* owner_;
    HWND handle_ = nullptr;
    MessageWatch* watch_ = nullptr;
    int dpi_ = 0;
    int firstDpi_ = 0;  ///< the one for which the system made the window
    /// Percent. A page keeps to the text of the dialog around it, in which it has a fixed room.
    int textScale_ = 100;
    /// The controls' font once they have been scaled; else null.
    HFONT font_ = nullptr;
    bool open_ = true;
    bool closing_ = false;
    /// The control that gets the focus when the window is shown.
    HWND firstFocus_ = nullptr;
    ui::Form* form_ = nullptr;
    std::unique_ptr<Tooltips> tooltips_;
    std::map<int, std::unique_ptr<ControlBase>> controls_;
    std::vector<Timer*> timers_;
    std::uintptr_t lastTimer_ = 0;
};

/// As a dialog moves its focus, so that its default button follows. A text box would be selected whole by
/// that.
void moveFocus(HWND dialog, HWND next);

}  // namespace win
