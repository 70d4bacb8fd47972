#include "windows/trace/window_trace.h"

#include "windows/trace/shown.h"
#include "windows/trace/trace_log.h"

namespace trace {
namespace {

struct Watched {
    UINT message;
    const wchar_t* name;
};

constexpr Watched WATCHED[] = {
    {WM_CREATE, L"WM_CREATE"},
    {WM_DESTROY, L"WM_DESTROY"},
    {WM_SHOWWINDOW, L"WM_SHOWWINDOW"},
    {WM_SIZE, L"WM_SIZE"},
    {WM_MOVE, L"WM_MOVE"},
    {WM_ENABLE, L"WM_ENABLE"},
    {WM_ACTIVATE, L"WM_ACTIVATE"},
    {WM_SETFOCUS, L"WM_SETFOCUS"},
    {WM_KILLFOCUS, L"WM_KILLFOCUS"},
    {WM_DPICHANGED, L"WM_DPICHANGED"},
    {0x02E2, L"WM_DPICHANGED_BEFOREPARENT"},
    {0x02E3, L"WM_DPICHANGED_AFTERPARENT"},
    {WM_CLOSE, L"WM_CLOSE"},
    {WM_CHANGEUISTATE, L"WM_CHANGEUISTATE"},
};

LRESULT CALLBACK watch(int code, WPARAM wParam, LPARAM lParam) noexcept {
    const auto* sent = reinterpret_cast<const CWPSTRUCT*>(lParam);
    for (const Watched& watched : WATCHED)
        if (code == HC_ACTION && sent->message == watched.message) {
            write(std::wstring(watched.name) + L" (" + hex(sent->wParam) + L", " +
                  hex(static_cast<unsigned long long>(sent->lParam)) + L") to " + shown(sent->hwnd));
            break;
        }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace

WindowTrace::WindowTrace() : hook_(SetWindowsHookExW(WH_CALLWNDPROC, watch, nullptr, GetCurrentThreadId())) {
    const HDC screen = GetDC(nullptr);
    write(L"screen: " + shown(GetDeviceCaps(screen, LOGPIXELSX)) + L" DPI");
    ReleaseDC(nullptr, screen);
}

WindowTrace::~WindowTrace() { UnhookWindowsHookEx(hook_); }

}  // namespace trace
