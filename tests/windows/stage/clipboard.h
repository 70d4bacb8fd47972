// What tests put on the clipboard.
#pragma once

#include <windows.h>

#include <cstring>
#include <stdexcept>

namespace tests {

[[nodiscard]] inline HGLOBAL memoryOf(const void* bytes, std::size_t size) {
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, size);
    std::memcpy(GlobalLock(memory), bytes, size);
    GlobalUnlock(memory);
    return memory;
}

/// Another program may have the clipboard open for a moment. False where the system refuses the data.
inline bool putOnClipboard(HWND owner, UINT format, HANDLE data) {
    for (int attempt = 0; !OpenClipboard(owner); ++attempt) {
        if (attempt == 100) throw std::runtime_error("the clipboard cannot be opened");
        Sleep(10);
    }
    EmptyClipboard();
    const bool taken = SetClipboardData(format, data) != nullptr;
    CloseClipboard();
    return taken;
}

}  // namespace tests
