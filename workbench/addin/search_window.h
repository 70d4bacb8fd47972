// The add-in's search window: the page sends its messages there. Shows each of them.
#pragma once

#include <functional>

#include "workbench/addin/call_list.h"
#include "workbench/addin/stand_in.h"
#include "workbench/shell/window.h"

namespace workbench {

/// While it lives, its handle stands in the registry as hWndSearchCtl.
class SearchWindow final : public Window {
public:
    SearchWindow(StandIn& standIn, CallList& calls);
    ~SearchWindow() override;
    void show();

private:
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void received(const std::wstring& name, WPARAM wParam, LPARAM lParam);
    void fitList();

    StandIn& standIn_;
    CallList& calls_;
    HWND list_ = nullptr;
};

}  // namespace workbench
