// Windows that hold controls, the screen that makes them, timers and message boxes.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "ui/controls.h"

namespace ui {

class Form;

/// A periodic timer of a window.
class Timer {
public:
    Timer() = default;
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;
    virtual ~Timer() = default;
    /// Ticks at this interval from now on, whether it ran before or not.
    virtual void start(int milliseconds) = 0;
    virtual void stop() = 0;
    std::function<void()> onTimer;
};

/// A dialog or page with the controls of its template.
class Window {
public:
    Window() = default;
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;
    virtual ~Window() = default;

    /// The control of the template with this identifier, as a `T`. The same object at each call; it lives
    /// as long as the window. Throws std::logic_error where the template has no such control.
    template <class T>
    [[nodiscard]] T& control(int identifier) {
        return dynamic_cast<T&>(bind(T::kind, identifier));
    }

    [[nodiscard]] virtual std::unique_ptr<Timer> createTimer() = 0;

    [[nodiscard]] virtual std::wstring caption() const = 0;
    /// Pixels: the whole window with its frame.
    [[nodiscard]] virtual Size outerSize() const = 0;
    virtual void setOuterSize(const Size& size) = 0;
    /// Pixels: the area for the controls.
    [[nodiscard]] virtual Size innerSize() const = 0;
    [[nodiscard]] virtual std::intptr_t handle() const = 0;
    /// How much larger the window's monitor shows everything than the screen's twips per pixel say.
    [[nodiscard]] virtual double magnification() const { return 1.0; }

    /// Disables the owner, runs `load`, shows the window unless it has closed by then, and returns when it
    /// has closed; the owner is enabled again. `form` is the form that lives in it. Nothing happens, and
    /// `load` does not run, while the host closes the page. What `load` throws comes through.
    virtual void runModal(Form& form, const std::function<void()>& load) = 0;
    /// Asks the form (`onQueryUnload`) and ends `runModal`. Does nothing on a closed window.
    virtual void close() = 0;
    [[nodiscard]] virtual bool isOpen() const = 0;

    std::function<void()> onResize;
    /// Another resolution: the controls have been scaled. `onResize` follows.
    std::function<void()> onRescale;
    /// Raised once, when the window is about to close for any reason.
    std::function<void()> onQueryUnload;

protected:
    [[nodiscard]] virtual Control& bind(Kind kind, int identifier) = 0;
};

enum class MessageIcon { none, exclamation, question, information };
enum class MessageButtons { ok, yesNo };
enum class MessageAnswer { ok, yes, no };

struct Message {
    std::wstring text;
    std::wstring title;
    MessageIcon icon = MessageIcon::none;
    MessageButtons buttons = MessageButtons::ok;
    /// What Enter answers where there is a choice.
    MessageAnswer defaultAnswer = MessageAnswer::yes;
    bool operator==(const Message&) const = default;
};

/// Makes windows and asks the user short questions.
class Screen {
public:
    Screen() = default;
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;
    virtual ~Screen() = default;

    /// A hidden window from the dialog template with this identifier. `owner` is disabled while the
    /// window runs modally; null stands for no owner.
    [[nodiscard]] virtual std::unique_ptr<Window> createDialog(int templateIdentifier, Window* owner) = 0;

    /// Modal over `owner` (may be null).
    virtual MessageAnswer showMessage(Window* owner, const Message& message) = 0;

    /// The system's colour chooser, modal over `owner`, started on `initial`. An empty title leaves the
    /// chooser's own. Nothing where the user cancels; throws a std::exception where the chooser fails.
    virtual std::optional<Colour> chooseColour(Window& owner, Colour initial, const std::wstring& title) = 0;

    [[nodiscard]] virtual double twipsPerPixelX() const = 0;
    [[nodiscard]] virtual double twipsPerPixelY() const = 0;

    /// Pixels: the system's width of a horizontal scroll bar's thumb.
    [[nodiscard]] virtual int scrollThumbWidth() const = 0;

    /// The names of the screen's fonts, in the order in which the system lists them.
    [[nodiscard]] virtual std::vector<std::wstring> fonts() const = 0;
};

}  // namespace ui
