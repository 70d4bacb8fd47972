#include "tests/windows/stage/announcements.h"

namespace tests {
namespace {

constexpr DWORD LIVE_REGION_CHANGED = 0x8019;
/// The latest are kept: what is counted over many openings does not grow by them.
constexpr std::size_t MOST_KEPT = 16;

Announcements* listener = nullptr;

}  // namespace

Announcements::Announcements()
    : hook_(SetWinEventHook(LIVE_REGION_CHANGED, LIVE_REGION_CHANGED, nullptr, hear, GetCurrentProcessId(),
                            GetCurrentThreadId(), WINEVENT_OUTOFCONTEXT)) {
    listener = this;
}

Announcements::~Announcements() {
    listener = nullptr;
    if (hook_ != nullptr) UnhookWinEvent(hook_);
}

void CALLBACK Announcements::hear(HWINEVENTHOOK, DWORD, HWND window, LONG, LONG, DWORD, DWORD) noexcept {
    wchar_t text[400] = L"";
    GetWindowTextW(window, text, 400);
    if (listener == nullptr) return;
    std::vector<std::wstring>& heard = listener->heard_;
    if (heard.size() == MOST_KEPT) heard.erase(heard.begin());
    heard.emplace_back(text);
}

}  // namespace tests
