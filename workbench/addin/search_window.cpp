#include "workbench/addin/search_window.h"

#include "workbench/addin/contract.h"
#include "workbench/addin/store.h"

namespace workbench {
namespace {

HWND createList(HWND parent) {
    const HWND list = CreateWindowExW(WS_EX_CLIENTEDGE, L"LISTBOX", L"",
                                      WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_TABSTOP | LBS_NOINTEGRALHEIGHT,
                                      0, 0, 0, 0, parent, nullptr, GetModuleHandleW(nullptr), nullptr);
    SendMessageW(list, WM_SETFONT, reinterpret_cast<WPARAM>(dialogFont()), FALSE);
    return list;
}

}  // namespace

SearchWindow::SearchWindow(StandIn& standIn, CallList& calls) : standIn_(standIn), calls_(calls) {
    create(L"QuillmarkSearchWindow", L"Search window",
           {WS_OVERLAPPEDWINDOW, 0, scaled(20), scaled(410), scaled(380), scaled(160)}, nullptr);
    list_ = createList(handle());
    fitList();
    store::writeNumber(ROOT_KEY, value::hWndSearchCtl,
                       static_cast<DWORD>(reinterpret_cast<ULONG_PTR>(handle())));
}

SearchWindow::~SearchWindow() {
    store::removeValue(ROOT_KEY, value::hWndSearchCtl);
    destroy();
}

void SearchWindow::show() { ShowWindow(handle(), SW_SHOWNOACTIVATE); }

void SearchWindow::fitList() {
    RECT area;
    GetClientRect(handle(), &area);
    MoveWindow(list_, 0, 0, area.right, area.bottom, TRUE);
}

void SearchWindow::received(const std::wstring& name, WPARAM wParam, LPARAM lParam) {
    const std::wstring arguments =
        L"wParam " + std::to_wstring(wParam) + L", lParam " + std::to_wstring(lParam);
    calls_.note(side::pageToWindow, name, arguments);
    const std::wstring line = calls_.calls().empty()
                                  ? name
                                  : timeText(calls_.calls().back().time) + L"  " + name + L"  " + arguments;
    const LRESULT index = SendMessageW(list_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line.c_str()));
    SendMessageW(list_, LB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

LRESULT SearchWindow::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case MESSAGE_EDIT_KNOWLEDGEBASE:
            received(L"1139 edit knowledgebase", wParam, lParam);
            standIn_.edit();
            return 0;
        case MESSAGE_START_WIZARD: received(L"1127 start wizard", wParam, lParam); return 0;
        case WM_KEYDOWN:
            received(wParam == KEY_KNOWLEDGEBASE_GONE ? L"WM_KEYDOWN knowledgebase gone" : L"WM_KEYDOWN",
                     wParam, lParam);
            return 0;
        case WM_SIZE: fitList(); return 0;
        case WM_CLOSE:
            ShowWindow(handle(), SW_HIDE);  // it goes on receiving
            return 0;
        default: return Window::onMessage(message, wParam, lParam);
    }
}

}  // namespace workbench
