// What a test does inside message loops that are not its own: those of dialogs, questions and menus.
#pragma once

#include <windows.h>

#include <functional>
#include <map>

namespace tests {

/// Acts every so many milliseconds for as long as it lives, also while an earlier act still runs a loop.
class Ticker {
public:
    Ticker(UINT milliseconds, std::function<void()> act)
        : act_(std::move(act)), timer_(SetTimer(nullptr, 0, milliseconds, tick)) {
        all_[timer_] = this;
    }
    Ticker(const Ticker&) = delete;
    Ticker& operator=(const Ticker&) = delete;
    ~Ticker() {
        KillTimer(nullptr, timer_);
        all_.erase(timer_);
    }

private:
    /// A tick may be on its way when its ticker ends.
    static void CALLBACK tick(HWND, UINT, UINT_PTR timer, DWORD) noexcept {
        if (const auto found = all_.find(timer); found != all_.end()) found->second->act_();
    }
    static inline std::map<UINT_PTR, Ticker*> all_;
    std::function<void()> act_;
    UINT_PTR timer_;
};

}  // namespace tests
