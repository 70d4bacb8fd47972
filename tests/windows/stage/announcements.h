// What screen readers are given to say at once: the texts of the windows that announce themselves.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace tests {

/// Listens while it lives; one at a time. What was announced is heard when messages are delivered.
class Announcements {
public:
    Announcements();
    ~Announcements();
    Announcements(const Announcements&) = delete;
    Announcements& operator=(const Announcements&) = delete;

    [[nodiscard]] const std::vector<std::wstring>& heard() const { return heard_; }

private:
    static void CALLBACK hear(HWINEVENTHOOK hook, DWORD event, HWND window, LONG object, LONG child,
                              DWORD thread, DWORD time) noexcept;

    HWINEVENTHOOK hook_;
    std::vector<std::wstring> heard_;
};

}  // namespace tests
