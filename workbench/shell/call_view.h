// The list of calls on the screen.
#pragma once

#include "workbench/addin/call_list.h"

namespace workbench {

class CallView {
public:
    explicit CallView(CallList& calls) : calls_(calls) {}
    CallView(const CallView&) = delete;
    CallView& operator=(const CallView&) = delete;
    ~CallView() { calls_.onChange = nullptr; }

    void create(HWND parent);
    /// Fills the parent's client area.
    void fit();

private:
    void addColumn(int index, const wchar_t* title, int width);
    void refresh();
    void showRow(int row, const Call& call);

    CallList& calls_;
    HWND list_ = nullptr;
};

}  // namespace workbench
