// What screen readers are given to say at once: the texts of the windows that announce themselves.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "tests/windows/stage/window_queries.h"

namespace tests {

/// Listens while it lives; one at a time. What was announced is heard when messages are delivered.
class Announcements {
public:
    Announcements()
        : hook_(SetWinEventHook(LIVE_REGION_CHANGED, LIVE_REGION_CHANGED, nullptr, hear,
                                GetCurrentProcessId(), GetCurrentThreadId(), WINEVENT_OUTOFCONTEXT)) {
        listener_ = this;
    }
    ~Announcements() {
        listener_ = nullptr;
        if (hook_ != nullptr) UnhookWinEvent(hook_);
    }
    Announcements(const Announcements&) = delete;
    Announcements& operator=(const Announcements&) = delete;

    [[nodiscard]] const std::vector<std::wstring>& heard() const { return heard_; }

private:
    static constexpr DWORD LIVE_REGION_CHANGED = 0x8019;
    /// The latest are kept: what is counted over many openings does not grow by them.
    static constexpr std::size_t MOST_KEPT = 16;

    static void CALLBACK hear(HWINEVENTHOOK, DWORD, HWND window, LONG, LONG, DWORD, DWORD) noexcept {
        if (listener_ == nullptr) return;
        std::vector<std::wstring>& heard = listener_->heard_;
        if (heard.size() == MOST_KEPT) heard.erase(heard.begin());
        heard.push_back(windowTextOf(window));
    }

    static inline Announcements* listener_ = nullptr;
    HWINEVENTHOOK hook_;
    std::vector<std::wstring> heard_;
};

}  // namespace tests
