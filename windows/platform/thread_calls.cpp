#include "windows/platform/thread_calls.h"

#include <utility>

#include "windows/platform/locked.h"
#include "windows/platform/text.h"

namespace win {
namespace {

constexpr UINT RUN_NEXT = WM_APP + 1;

}  // namespace

// A class of the system's: one of its own would have to be taken back before the library is unloaded.
ThreadCalls::ThreadCalls()
    : window_(
          CreateWindowExW(0, L"Static", nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr)) {
    if (window_ == nullptr) throwLastError();
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
}

bool ThreadCalls::post(Call call) {
    const Locked locked(lock_);
    if (window_ == nullptr) return false;
    waiting_.push_back(std::move(call));
    // One message for each call: the system keeps them in order. Its thread may have ended, its queue be
    // full.
    const bool carried = PostMessageW(window_, RUN_NEXT, 0, 0) != FALSE;
    if (!carried) waiting_.pop_back();
    return carried;
}

void ThreadCalls::runWaiting() {
    std::size_t count = 0;
    {
        const Locked locked(lock_);
        count = waiting_.size();
    }
    for (; count > 0; --count) runNext();
}

void ThreadCalls::runNext() noexcept {
    Call call;
    {
        const Locked locked(lock_);
        if (waiting_.empty()) return;
        call = std::move(waiting_.front());
        waiting_.pop_front();
    }
    try {
        call();  // which may be the end of this object
    } catch (...) {
        return;  // whoever posted it has gone on
    }
}

void ThreadCalls::close() noexcept {
    HWND ended = nullptr;
    std::deque<Call> dropped;
    {
        const Locked locked(lock_);
        ended = std::exchange(window_, nullptr);
        dropped.swap(waiting_);
    }
    if (ended != nullptr) DestroyWindow(ended);
}

LRESULT CALLBACK ThreadCalls::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    if (message != RUN_NEXT) return DefWindowProcW(window, message, wParam, lParam);
    reinterpret_cast<ThreadCalls*>(GetWindowLongPtrW(window, GWLP_USERDATA))->runNext();
    return 0;
}

}  // namespace win
