// The workbench: for people who try, develop or test the options page.
#include <windows.h>

#include <commctrl.h>
#include <ole2.h>

#include "product_version.h"
#include "workbench/addin/sample.h"
#include "workbench/addin/store.h"
#include "workbench/shell/main_window.h"
#include "workbench/workbench.ids.h"

namespace workbench {
namespace {

constexpr int BAD_ARGUMENTS = 2;

void print(DWORD handle, const std::wstring& text) {
    const std::string bytes = toUtf8(text);
    DWORD written = 0;
    WriteFile(GetStdHandle(handle), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

bool prepare(const CommandLine& line) {
    if (line.version) print(STD_OUTPUT_HANDLE, L"" PRODUCT_VERSION "\n");
    if (line.help) print(STD_OUTPUT_HANDLE, usage());
    if (line.unregisterClass) unregisterAddInClass();
    if (line.registerClass && !registerAddInClass()) {
        print(STD_ERROR_HANDLE, L"The add-in's class cannot be registered; it takes an administrator.\n");
        return false;
    }
    if (line.sample) fillWithSample();
    if (line.dump) print(STD_OUTPUT_HANDLE, store::dump());
    if (line.finishNow && !MainWindow::tellRunning(IDM_finishNow)) return false;
    return !line.autoUpdate || MainWindow::tellRunning(IDM_autoUpdate);
}

int runProgram() {
    const CommandLine line = readCommandLine();
    if (!line.fault.empty()) {
        print(STD_ERROR_HANDLE, L"Not understood: " + line.fault + L"\n\n" + usage());
        return BAD_ARGUMENTS;
    }
    if (!prepare(line)) return 1;
    return line.onlyPreparations() ? 0 : MainWindow(line).run();
}

}  // namespace
}  // namespace workbench

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    if (FAILED(OleInitialize(nullptr))) return 1;
    InitCommonControls();
    int exitCode = 1;
    try {
        exitCode = workbench::runProgram();
    } catch (...) {
        exitCode = 1;
    }
    OleUninitialize();
    return exitCode;
}
