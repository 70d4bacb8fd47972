// Stands before a window's own procedure, for whoever hears its messages first.
#pragma once

#include <windows.h>

#include <optional>

namespace win {

/// Is told around each message to a hooked window. What it tells may end the window and those who hear it.
class MessageWatch {
public:
    /// False where it does not want to know of the end.
    [[nodiscard]] virtual bool messageBegins() noexcept = 0;
    /// `parameter` is the message's first.
    virtual void messageEnded(UINT message, WPARAM parameter) noexcept = 0;

protected:
    ~MessageWatch() = default;
};

/// Hears each message to a window before the window does.
class MessageListener {
public:
    /// A result keeps the message away from the window. May throw; then the window gets it.
    [[nodiscard]] virtual std::optional<LRESULT> heard(UINT message, WPARAM wParam, LPARAM lParam) = 0;
    /// The window goes; nothing more comes of it.
    virtual void windowGoes() noexcept = 0;
    /// Null for none.
    [[nodiscard]] virtual MessageWatch* watch() const noexcept = 0;

protected:
    ~MessageListener() = default;
};

/// From now on until the window goes or `unhook` is called. The window's place for the data of its program is
/// taken by that. Throws std::bad_alloc.
void hook(HWND window, MessageListener& listener);
/// Nobody hears the window any more.
void unhook(HWND window) noexcept;

}  // namespace win
