// A window of a thread that handles no messages: whoever sends it one waits.
#pragma once

#include <windows.h>

#include <thread>

namespace workbench {

/// While it lives, its handle stands in the registry as hWndSearchCtl; then the one that stood there before.
class HungWindow {
public:
    HungWindow();
    HungWindow(const HungWindow&) = delete;
    HungWindow& operator=(const HungWindow&) = delete;
    ~HungWindow();

private:
    void live(HANDLE made) const;

    HANDLE end_ = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    DWORD before_ = 0;
    std::thread thread_;
};

}  // namespace workbench
