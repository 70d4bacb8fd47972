#include "tests/windows/controls/reader_table.h"

#include <gmock/gmock.h>

#include <iomanip>
#include <iostream>
#include <set>

#include "tests/windows/stage/window_queries.h"

namespace tests {
namespace {

bool canHaveFocus(HWND window) {
    const auto style = static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE));
    const bool stop = (style & WS_TABSTOP) != 0;
    const auto code = static_cast<UINT>(SendMessageW(window, WM_GETDLGCODE, 0, 0));
    return stop || (code & DLGC_RADIOBUTTON) != 0;
}

}  // namespace

void expectEachNamed(const char* windowName, HWND dialog, const AnnotationsStandIn& annotations) {
    std::set<std::wstring> told;
    for (const HWND control : controlsOf(dialog)) {
        if (!canHaveFocus(control)) continue;
        const Told row = askReader(control, annotations);
        std::wcout << std::left << std::setw(44) << windowName << std::setw(16) << classOf(control)
                   << std::setw(12) << row.role << std::setw(32) << row.name << std::setw(46)
                   << row.description << std::setw(32) << row.value << row.state << L"\n";
        EXPECT_THAT(row.name, testing::Not(testing::IsEmpty())) << windowName << " " << GetDlgCtrlID(control);
        EXPECT_TRUE(told.insert(classOf(control) + L"|" + row.name).second)
            << windowName << ": two controls are told alike: " << GetDlgCtrlID(control);
    }
    EXPECT_FALSE(told.empty());
}

}  // namespace tests
