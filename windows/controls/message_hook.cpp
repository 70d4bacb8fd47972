#include "windows/controls/message_hook.h"

#include <memory>

namespace win {
namespace {

/// Stands in the place that every window keeps for its program. SetWindowSubclass would look up its own list
/// twice for each message, which takes many times as long as a short message itself.
struct Hook {
    MessageListener* listener;
    WNDPROC original;
};

Hook* hookOf(HWND window) { return reinterpret_cast<Hook*>(GetWindowLongPtrW(window, GWLP_USERDATA)); }

WNDPROC procedureOf(HWND window) {
    return reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC));
}

void setProcedure(HWND window, WNDPROC procedure) {
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
}

/// Tells of a message's begin and, where that is wanted, of its end.
class Watched {
public:
    Watched(MessageWatch* watch, UINT message, WPARAM parameter)
        : watch_(watch != nullptr && watch->messageBegins() ? watch : nullptr),
          message_(message),
          parameter_(parameter) {}
    Watched(const Watched&) = delete;
    Watched& operator=(const Watched&) = delete;
    ~Watched() {
        if (watch_ != nullptr) watch_->messageEnded(message_, parameter_);
    }

private:
    MessageWatch* watch_;
    UINT message_;
    WPARAM parameter_;
};

LRESULT CALLBACK hooked(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

void windowGoes(HWND window) {
    const std::unique_ptr<Hook> place(hookOf(window));
    // Someone who stands before this procedure may still call it.
    if (procedureOf(window) == hooked)
        setProcedure(window, place->original);
    else
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    if (place->listener != nullptr) place->listener->windowGoes();
}

LRESULT CALLBACK hooked(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    Hook* const place = hookOf(window);
    if (place == nullptr) return DefWindowProcW(window, message, wParam, lParam);
    const WNDPROC original = place->original;  // the place may go while the message is heard
    const Watched watched(place->listener ? place->listener->watch() : nullptr, message, wParam);
    if (message == WM_NCDESTROY) {
        windowGoes(window);
    } else if (place->listener != nullptr) {
        try {
            if (const auto answer = place->listener->heard(message, wParam, lParam)) return *answer;
        } catch (...) {
            // A handler that fails has had its say; the window goes on with the message.
        }
    }
    return CallWindowProcW(original, window, message, wParam, lParam);
}

}  // namespace

void hook(HWND window, MessageListener& listener) {
    auto made = std::make_unique<Hook>(&listener, procedureOf(window));
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(made.release()));
    setProcedure(window, hooked);
}

/// The procedure stays until the window goes: others may have put theirs before it.
void unhook(HWND window) noexcept {
    if (Hook* const place = hookOf(window)) place->listener = nullptr;
}

}  // namespace win
