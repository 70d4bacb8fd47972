// The workbench's own window: the list of calls, and menus for all that the stand-ins can do.
#pragma once

#include <memory>
#include <optional>

#include "workbench/addin/automation.h"
#include "workbench/addin/registration.h"
#include "workbench/addin/search_window.h"
#include "workbench/host/options_dialog.h"
#include "workbench/shell/call_view.h"
#include "workbench/shell/command_line.h"

namespace workbench {

class MainWindow final : public Window {
public:
    explicit MainWindow(const CommandLine& line);
    ~MainWindow() override;

    /// The message loop. The program's exit code.
    int run();
    /// Gives a command of the menu to the workbench that runs in another process; false where none does.
    static bool tellRunning(int menuCommand);

private:
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void command(int identifier);
    void startAddIn();
    void startOrStopAddIn();
    void showSearchWindow();
    void showOptions();
    void optionsClosed();
    void setFailure(std::size_t operation);
    void askFailureText();
    void markMenu();
    void markWorld(const std::function<void(int, bool)>& mark) const;
    /// False where the command is none of the menu "World".
    bool changeWorld(int identifier);
    void addFailuresToMenu();
    void sendToPage(UINT message, WPARAM wParam, LPARAM lParam);
    void translateAndDispatch(MSG& message);

    CommandLine line_;
    CallList calls_;
    StandIn standIn_{calls_};
    com::Ptr<Automation> automation_ = com::Ptr<Automation>::attach(new Automation(standIn_, calls_));
    RunningObject runningObject_{static_cast<IOlAddIn&>(*automation_.get())};
    /// None until the stand-in runs for the first time: it would answer for an add-in that is tried.
    std::optional<SearchWindow> searchWindow_;
    CallView view_{calls_};
    std::shared_ptr<OptionsDialog> options_;
    std::wstring failureText_ = L"The stand-in add-in was told to fail.";
    int exitCode_ = 0;
};

}  // namespace workbench
