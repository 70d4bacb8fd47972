// Calls that are carried to one thread from any other.
#pragma once

#include <windows.h>

#include <deque>
#include <functional>

namespace win {

/// Runs calls on the thread that made it, one after the other in the order in which they were posted,
/// whenever that thread dispatches messages. It must be closed or destroyed there, too.
class ThreadCalls {
public:
    using Call = std::function<void()>;

    /// Throws vexa::Error where the system makes no window.
    ThreadCalls();
    ThreadCalls(const ThreadCalls&) = delete;
    ThreadCalls& operator=(const ThreadCalls&) = delete;
    ~ThreadCalls() { close(); }

    /// On any thread; never waits for the call. False where the call will not run: after the end of this
    /// object or of its thread. Throws std::bad_alloc.
    [[nodiscard]] bool post(Call call);
    /// Runs at once what is waiting now.
    void runWaiting();
    /// What is waiting never runs.
    void close() noexcept;

    [[nodiscard]] bool onOwnThread() const { return thread_ == GetCurrentThreadId(); }

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    void runNext() noexcept;

    DWORD thread_ = GetCurrentThreadId();
    SRWLOCK lock_ = SRWLOCK_INIT;  // of the two below
    HWND window_ = nullptr;
    std::deque<Call> waiting_;
};

}  // namespace win
