// The report composer on the stage.
#pragma once

#include "report/frmSendBugReport.h"
#include "report/toolbar_buttons.h"
#include "tests/stage/form_test.h"
#include "tests/support/text.h"

namespace tests {

namespace button = vexa::propertyButton;
using vexa::frmSendBugReport;
using vexa::SEND_BUTTON;

class ReportTest : public FormTest {
public:
    void SetUp() override { application.addIn = application.platform.addIns.running(); }

    /// Opens a composer, plays `script` and closes the composer where that is still open.
    void open(FunctionRef<void(frmSendBugReport&)> script) { openOf(application, script); }
    void openOf(vexa::Application& its, FunctionRef<void(frmSendBugReport&)> script) {
        stage->whenShown<frmSendBugReport>([&](frmSendBugReport& form) {
            script(form);
            if (form.window().isOpen()) user.closeWindow(form.window());
        });
        vexa::showBugReport(its, stage->owner());
    }

    void storeRecipient(const std::wstring& recipient) {
        stage->setValue(L"Software\\Norvane\\Quillmark", L"SendTo", recipient);
    }

    /// The pressed buttons of the formatting toolbar, by index.
    static std::vector<int> pressed(const frmSendBugReport& form) {
        std::vector<int> indices;
        for (int index = 1; index <= form.tbrProperties.count(); ++index)
            if (form.tbrProperties.pressed(index)) indices.push_back(index);
        return indices;
    }
    static std::vector<int> disabled(const frmSendBugReport& form) {
        std::vector<int> indices;
        for (int index = 1; index <= form.tbrProperties.count(); ++index)
            if (!form.tbrProperties.buttonEnabled(index)) indices.push_back(index);
        return indices;
    }
    static std::vector<std::wstring> items(const ui::ComboBox& combo) {
        std::vector<std::wstring> all;
        for (int index = 0; index < combo.count(); ++index) all.push_back(combo.item(index));
        return all;
    }
    static std::wstring selectedText(const ui::ComboBox& combo) {
        return combo.selectedIndex() < 0 ? L"" : combo.item(combo.selectedIndex());
    }
    static int indexOf(const ui::ComboBox& combo, const std::wstring& entry) {
        for (int index = 0; index < combo.count(); ++index)
            if (combo.item(index) == entry) return index;
        return -1;
    }
};

/// With a recipient, to whom reports are sent.
class ReportToHelp : public ReportTest {
public:
    void SetUp() override {
        ReportTest::SetUp();
        storeRecipient(L"help@tarnwell.example");
    }
    void send(frmSendBugReport& form) { user.clickButton(form.tbrBugReport, SEND_BUTTON); }
    [[nodiscard]] const vexa::MailReport& sent() { return stage->addIn().report; }
};

}  // namespace tests
