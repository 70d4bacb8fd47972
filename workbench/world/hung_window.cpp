#include "workbench/world/hung_window.h"

#include "workbench/addin/contract.h"
#include "workbench/addin/store.h"

namespace workbench {

HungWindow::HungWindow() : before_(store::readNumber(ROOT_KEY, value::hWndSearchCtl)) {
    const HANDLE made = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    thread_ = std::thread([this, made] { live(made); });
    WaitForSingleObject(made, INFINITE);
    CloseHandle(made);
}

HungWindow::~HungWindow() {
    SetEvent(end_);
    thread_.join();
    CloseHandle(end_);
    store::writeNumber(ROOT_KEY, value::hWndSearchCtl, before_);
}

void HungWindow::live(HANDLE made) const {
    const HWND window =
        CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
    store::writeNumber(ROOT_KEY, value::hWndSearchCtl,
                       static_cast<DWORD>(reinterpret_cast<ULONG_PTR>(window)));
    SetEvent(made);
    WaitForSingleObject(end_, INFINITE);
    DestroyWindow(window);
}

}  // namespace workbench
