#include "windows/platform/pending_events.h"

#include "windows/platform/messages.h"

namespace win {
namespace {

/// Timers and windows that one call handles at most, whatever their handlers make anew.
constexpr std::size_t MOST_AT_ONCE = 1000;

constexpr UINT ANY = 0;

/// Posted behind what waits, so that the end of it is seen. Marks are numbered; a call inside another one
/// takes the outer one's mark out of the queue on its way to its own.
UINT markMessage() {
    static const UINT message = RegisterWindowMessageW(L"VexaPPE pending events end here");
    return message;
}

unsigned lastMark = 0;
unsigned passedMark = 0;

}  // namespace

PendingEvents::PendingEvents() : begin_(GetTickCount()), mark_(++lastMark) {
    PostThreadMessageW(GetCurrentThreadId(), markMessage(), mark_, 0);
}

void PendingEvents::run() {
    if (runPosted() && runInput() && runEachOnce(WM_PAINT)) runEachOnce(WM_TIMER);
}

bool PendingEvents::isLater(const MSG& message) const { return static_cast<LONG>(message.time - begin_) > 0; }

bool PendingEvents::look(MSG& message, UINT kind, UINT queue) {
    if (!PeekMessageW(&message, nullptr, kind, kind, PM_NOREMOVE | queue)) return false;
    ending_ = message.message == WM_QUIT;
    return !ending_;
}

bool PendingEvents::runPosted() {
    MSG message;
    // Some other loop may have taken the mark out: then the messages' times tell where to stop.
    bool later = false;
    while (passedMark < mark_ && !later && look(message, ANY, PM_QS_POSTMESSAGE)) {
        if (!PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE | PM_QS_POSTMESSAGE)) break;
        later = isLater(message);
        if (message.hwnd == nullptr && message.message == markMessage())
            passedMark = static_cast<unsigned>(message.wParam);
        else
            dispatchToDialogs(message);
    }
    return !ending_;
}

bool PendingEvents::runInput() {
    MSG message;
    while (look(message, ANY, PM_QS_INPUT) && !isLater(message)) {
        if (!PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE | PM_QS_INPUT)) break;
        dispatchToDialogs(message);
    }
    return !ending_;
}

bool PendingEvents::runEachOnce(UINT kind) {
    Known handled;
    MSG message;
    while (handled.size() < MOST_AT_ONCE && look(message, kind, 0) &&
           handled.emplace(message.hwnd, message.wParam).second) {
        if (!PeekMessageW(&message, nullptr, kind, kind, PM_REMOVE)) break;
        dispatchToDialogs(message);
    }
    return !ending_;
}

}  // namespace win
