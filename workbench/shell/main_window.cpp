#include "workbench/shell/main_window.h"

#include <commctrl.h>

#include <algorithm>
#include <iterator>

#include "workbench/addin/contract.h"
#include "workbench/addin/sample.h"
#include "workbench/addin/store.h"
#include "workbench/host/control_source.h"
#include "workbench/workbench.ids.h"
#include "workbench/world/slow_files.h"

namespace workbench {
namespace {

constexpr const wchar_t* CLASS_NAME = L"QuillmarkWorkbench";

constexpr UINT OPTIONS_CLOSED = WM_APP + 1;
constexpr UINT PRESS_BUTTON = WM_APP + 2;

constexpr unsigned WORLD_TIMES[] = {0, 300, 2000};         // milliseconds, as in the menu
constexpr unsigned WORK_TIMES[] = {0, 500, 2000, 60'000};  // milliseconds, as in the menu

INT_PTR CALLBACK failureTextProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(dialog, DWLP_USER, lParam);
        SetDlgItemTextW(dialog, IDC_failureText, reinterpret_cast<std::wstring*>(lParam)->c_str());
        return TRUE;
    }
    if (message != WM_COMMAND || (LOWORD(wParam) != IDOK && LOWORD(wParam) != IDCANCEL)) return FALSE;
    if (LOWORD(wParam) == IDOK) {
        wchar_t text[300];
        GetDlgItemTextW(dialog, IDC_failureText, text, 300);
        *reinterpret_cast<std::wstring*>(GetWindowLongPtrW(dialog, DWLP_USER)) = text;
    }
    EndDialog(dialog, LOWORD(wParam));
    return TRUE;
}

}  // namespace

MainWindow::MainWindow(const CommandLine& line) : line_(line) {
    if (line.addInRuns) searchWindow_.emplace(standIn_, calls_);
    standIn_.behaviour = line.behaviour;
    standIn_.raiseProcessFinished = [this](const std::wstring& project, bool keepList) {
        standIn_.world.raise([automation = automation_, project, keepList] {
            automation->raiseProcessFinished(project, keepList);
        });
    };
    standIn_.world.weather = line.weather;
    standIn_.world.apply();
    if (!line.logFile.empty() && !calls_.openLog(line.logFile)) exitCode_ = 1;
    create(CLASS_NAME, L"Quillmark workbench",
           {WS_OVERLAPPEDWINDOW, 0, scaled(20), scaled(20), scaled(720), scaled(380)}, nullptr,
           LoadMenuW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDM_main)));
    addFailuresToMenu();
    view_.create(handle());
    if (line.addInRuns) runningObject_.start();
    ShowWindow(handle(), SW_SHOW);
    showSearchWindow();
    markMenu();
    if (line.showOptions) PostMessageW(handle(), WM_COMMAND, IDM_showOptions, 0);
}

MainWindow::~MainWindow() {
    options_.reset();
    runningObject_.stop();
    automation_->disconnect();
    // The handle of the search window comes back before the window goes.
    standIn_.world.weather = {};
    standIn_.world.apply();
    destroy();
}

bool MainWindow::tellRunning(int menuCommand) {
    const HWND running = FindWindowW(CLASS_NAME, nullptr);
    return running != nullptr && PostMessageW(running, WM_COMMAND, static_cast<WPARAM>(menuCommand), 0);
}

int MainWindow::run() {
    const HACCEL accelerators = LoadAcceleratorsW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDM_main));
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0)
        if (!TranslateAcceleratorW(handle(), accelerators, &message)) translateAndDispatch(message);
    return exitCode_;
}

void MainWindow::translateAndDispatch(MSG& message) {
    const auto options = options_;  // held: the message may close it
    if (options && options->translate(message)) return;
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

// --- The Options dialog -----------------------------------------------------------------------------------

void MainWindow::showOptions() {
    if (options_) return;
    std::wstring reason;
    slowDownFilesOf(loadPage(line_.pageFile));
    com::Ptr<IUnknown> page = createPage(line_.pageFile, reason);
    if (!page) {
        exitCode_ = 1;
        calls_.note(side::hostToPage, L"the page cannot be made", reason);
        if (line_.exitAfterOptions)
            PostQuitMessage(exitCode_);
        else
            MessageBoxW(handle(), (L"The page cannot be made: " + reason).c_str(), L"Quillmark workbench",
                        MB_ICONEXCLAMATION);
        return;
    }
    options_ = std::make_shared<OptionsDialog>(handle(), std::move(page), calls_);
    options_->onClosed = [this] { PostMessageW(handle(), OPTIONS_CLOSED, 0, 0); };
    for (const int button : line_.presses)
        PostMessageW(handle(), PRESS_BUTTON, static_cast<WPARAM>(button), 0);
}

void MainWindow::optionsClosed() {
    options_.reset();
    if (line_.exitAfterOptions) PostQuitMessage(exitCode_);
}

// --- The add-in -------------------------------------------------------------------------------------------

void MainWindow::setFailure(std::size_t operation) {
    auto& failures = standIn_.behaviour.failures;
    if (failures.erase(OPERATIONS[operation]) == 0) failures[OPERATIONS[operation]] = failureText_;
}

void MainWindow::askFailureText() {
    DialogBoxParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_failureText), handle(),
                    failureTextProcedure, reinterpret_cast<LPARAM>(&failureText_));
    for (auto& [operation, text] : standIn_.behaviour.failures) text = failureText_;
}

void MainWindow::sendToPage(UINT message, WPARAM wParam, LPARAM lParam) {
    const DWORD window = store::readNumber(store::profileKey(), value::hWndProperties);
    SendMessageW(reinterpret_cast<HWND>(static_cast<ULONG_PTR>(window)), message, wParam, lParam);
}

// --- The menu ---------------------------------------------------------------------------------------------

void MainWindow::addFailuresToMenu() {
    constexpr int FAILURES = 2;  // its place in the menu bar
    const HMENU menu = GetSubMenu(GetMenu(handle()), FAILURES);
    UINT identifier = IDM_failFirst;
    for (const wchar_t* operation : OPERATIONS) AppendMenuW(menu, MF_STRING, identifier++, operation);
}

void MainWindow::markMenu() {
    const HMENU menu = GetMenu(handle());
    const auto mark = [menu](int identifier, bool on) {
        CheckMenuItem(menu, static_cast<UINT>(identifier), on ? MF_CHECKED : MF_UNCHECKED);
    };
    const Behaviour& behaviour = standIn_.behaviour;
    mark(IDM_running, runningObject_.running());
    mark(IDM_searching, behaviour.searching);
    mark(IDM_processing, behaviour.processing);
    mark(IDM_finishesByState, behaviour.finishesByState);
    mark(IDM_keepsList, behaviour.keepsList);
    mark(IDM_editNoChange, behaviour.editNoChange);
    for (int i = 0; i < static_cast<int>(std::size(WORK_TIMES)); ++i)
        mark(IDM_workTime0 + i, behaviour.workTime == WORK_TIMES[i]);
    markWorld(mark);
    for (int i = 0; i < static_cast<int>(std::size(OPERATIONS)); ++i)
        mark(IDM_failFirst + i, behaviour.failures.contains(OPERATIONS[i]));
}

void MainWindow::markWorld(const std::function<void(int, bool)>& mark) const {
    const Weather& weather = standIn_.world.weather;
    for (int i = 0; i < static_cast<int>(std::size(WORLD_TIMES)); ++i) {
        mark(IDM_searchingTime0 + i, weather.searchingTime == WORLD_TIMES[i]);
        mark(IDM_baseFolderTime0 + i, weather.baseFolderTime == WORLD_TIMES[i]);
    }
    mark(IDM_hungSearchWindow, weather.hungSearchWindow);
    mark(IDM_eventFromThread, weather.eventFromThread);
    mark(IDM_pumps, weather.pumps);
}

bool MainWindow::changeWorld(int identifier) {
    Weather& weather = standIn_.world.weather;
    const auto flip = [](bool& flag) { flag = !flag; };
    if (identifier >= IDM_searchingTime0 && identifier <= IDM_searchingTime2)
        weather.searchingTime = WORLD_TIMES[identifier - IDM_searchingTime0];
    else if (identifier >= IDM_baseFolderTime0 && identifier <= IDM_baseFolderTime2)
        weather.baseFolderTime = WORLD_TIMES[identifier - IDM_baseFolderTime0];
    else if (identifier == IDM_hungSearchWindow)
        flip(weather.hungSearchWindow);
    else if (identifier == IDM_eventFromThread)
        flip(weather.eventFromThread);
    else if (identifier == IDM_pumps)
        flip(weather.pumps);
    else
        return false;
    standIn_.world.apply();
    return true;
}

/// A page that has found the add-in before loses it, too.
void MainWindow::startOrStopAddIn() {
    const bool starts = !runningObject_.running();
    standIn_.behaviour.away = !starts;
    if (starts)
        startAddIn();
    else
        runningObject_.stop();
}

void MainWindow::startAddIn() {
    if (!searchWindow_) searchWindow_.emplace(standIn_, calls_);
    runningObject_.start();
}

void MainWindow::showSearchWindow() {
    if (searchWindow_) searchWindow_->show();
}

void MainWindow::command(int identifier) {
    if (changeWorld(identifier)) return;
    Behaviour& behaviour = standIn_.behaviour;
    const auto flip = [](bool& flag) { flag = !flag; };
    switch (identifier) {
        case IDM_showOptions: return showOptions();
        case IDM_closeOptions: return options_ ? options_->close() : void();
        case IDM_sample: return fillWithSample();
        case IDM_clearList: return calls_.clear();
        case IDM_showSearchWindow: return showSearchWindow();
        case IDM_exit: DestroyWindow(handle()); return;
        case IDM_running: return startOrStopAddIn();
        case IDM_searching: return flip(behaviour.searching);
        case IDM_processing: return flip(behaviour.processing);
        case IDM_autoUpdate: return standIn_.runAutoUpdate();
        case IDM_finishNow: return standIn_.finishNow();
        case IDM_finishesByState: return flip(behaviour.finishesByState);
        case IDM_keepsList: return flip(behaviour.keepsList);
        case IDM_editNoChange: return flip(behaviour.editNoChange);
        case IDM_failureText: return askFailureText();
        case IDM_wizardOnByKey: return sendToPage(WM_KEYDOWN, WIZARD_ON, 0);
        case IDM_wizardOffByKey: return sendToPage(WM_KEYDOWN, WIZARD_OFF, 0);
        case IDM_wizardOnByPointer: return sendToPage(WM_MOUSEMOVE, 0, MAKELPARAM(WIZARD_ON, 0));
        case IDM_wizardOffByPointer: return sendToPage(WM_MOUSEMOVE, 0, MAKELPARAM(WIZARD_OFF, 0));
        default: break;
    }
    if (identifier >= IDM_workTime0 && identifier <= IDM_workTime3)
        behaviour.workTime = WORK_TIMES[identifier - IDM_workTime0];
    else if (identifier >= IDM_failFirst &&
             identifier < IDM_failFirst + static_cast<int>(std::size(OPERATIONS)))
        setFailure(static_cast<std::size_t>(identifier - IDM_failFirst));
}

LRESULT MainWindow::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND:
            command(LOWORD(wParam));
            if (handle() != nullptr) markMenu();
            return 0;
        case WM_SIZE: view_.fit(); return 0;
        case OPTIONS_CLOSED: optionsClosed(); return 0;
        case PRESS_BUTTON:
            if (const auto options = options_) options->press(static_cast<int>(wParam));
            return 0;
        case WM_DESTROY:
            if (const auto options = options_) options->close();
            PostQuitMessage(exitCode_);
            return 0;
        default: return Window::onMessage(message, wParam, lParam);
    }
}

}  // namespace workbench
