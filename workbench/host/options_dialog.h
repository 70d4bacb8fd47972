// A stand-in for Outlook's Options dialog: a tab of its own, the page's tab, OK, Cancel and Apply.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "workbench/host/hosted_page.h"

namespace workbench {

/// Modeless towards the workbench, so that the add-in can be operated while the page is open.
class OptionsDialog final : public PageEvents {
public:
    OptionsDialog(HWND owner, com::Ptr<IUnknown> page, CallList& calls);
    OptionsDialog(const OptionsDialog&) = delete;
    OptionsDialog& operator=(const OptionsDialog&) = delete;
    ~OptionsDialog() override;

    /// Called once, when the page is gone and the window is closed.
    std::function<void()> onClosed;

    /// As the user would: IDOK, IDCANCEL, or IDC_apply.
    void press(int button);
    /// Ends the page and closes the window, whatever goes on in it.
    void close();
    /// A message that the page or the dialog's keyboard handling uses up.
    bool translate(MSG& message);

    // PageEvents
    void statusChanged() override;
    bool leftoverKey(MSG& message) override;

private:
    static INT_PTR CALLBACK procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    INT_PTR onMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void moveToTheRight();
    void setTab(UINT message, int index, const std::wstring& title);
    HWND addPanel(int templateIdentifier);
    void showTab(int index);
    void apply();

    HWND dialog_ = nullptr;
    HWND general_ = nullptr;
    HWND pageArea_ = nullptr;
    bool shown_ = false;
    CallList& calls_;
    std::shared_ptr<HostedPage> page_;
};

}  // namespace workbench
