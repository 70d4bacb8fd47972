#include "windows/platform/sent_message.h"

#include <set>

namespace win {
namespace {

constexpr DWORD ROUND = 100;  // milliseconds between two looks whether the receiver hangs

/// The numbers of the messages whose answer is waited for.
std::set<ULONG_PTR>& waitedFor() {
    static std::set<ULONG_PTR> numbers;
    return numbers;
}

void CALLBACK answered(HWND, UINT, ULONG_PTR number, LRESULT) noexcept { waitedFor().erase(number); }

/// The answer to a message that was given up may come at any time later.
void stayLoaded() {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                       reinterpret_cast<LPCWSTR>(&answered), &module);
}

/// Handles what other threads send meanwhile, answers among it, and nothing else.
void waitRound() {
    MSG none;
    MsgWaitForMultipleObjectsEx(0, nullptr, ROUND, QS_SENDMESSAGE, MWMO_INPUTAVAILABLE);
    PeekMessageW(&none, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
}

Sent waitForAnswer(HWND receiver, ULONG_PTR number) {
    while (waitedFor().contains(number)) {
        if (!IsWindow(receiver)) return Sent::noWindow;
        if (IsHungAppWindow(receiver)) return Sent::hung;
        waitRound();
    }
    return Sent::handled;
}

}  // namespace

Sent sendAndWait(HWND receiver, UINT message, WPARAM wParam, LPARAM lParam) {
    if (!IsWindow(receiver)) return Sent::noWindow;
    if (GetWindowThreadProcessId(receiver, nullptr) == GetCurrentThreadId()) {
        SendMessageA(receiver, message, wParam, lParam);
        return Sent::handled;
    }
    if (IsHungAppWindow(receiver)) return Sent::hung;
    static ULONG_PTR last = 0;
    const ULONG_PTR number = ++last;
    waitedFor().insert(number);
    const bool sent = SendMessageCallbackA(receiver, message, wParam, lParam, answered, number) != FALSE;
    const Sent result = sent ? waitForAnswer(receiver, number) : Sent::noWindow;
    if (sent && result != Sent::handled) stayLoaded();
    waitedFor().erase(number);
    return result;
}

}  // namespace win
