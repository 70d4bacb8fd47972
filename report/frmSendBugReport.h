// "Send report": a small mail composer in which the user writes a problem report, which the add-in sends.
#pragma once

#include "common/application.h"
#include "report/formatting_bar.h"
#include "report/frmSendBugReport.ids.h"
#include "report/hover_look.h"
#include "ui/form.h"
#include "ui/richtext.h"
#include "ui/toolbar.h"

namespace vexa {

class frmSendBugReport : public ui::Form {
public:
    frmSendBugReport(Application& application, ui::Window& owner);

    ui::Toolbar& tbrBugReport = control<ui::Toolbar>(IDC_tbrBugReport);
    ui::Toolbar& tbrProperties = control<ui::Toolbar>(IDC_tbrProperties);
    ui::ComboBox& cboFontname = control<ui::ComboBox>(IDC_cboFontname);
    ui::ComboBox& cboFontsize = control<ui::ComboBox>(IDC_cboFontsize);
    ui::TextBox& txtTo = control<ui::TextBox>(IDC_txtTo);
    ui::TextBox& txtCc = control<ui::TextBox>(IDC_txtCc);
    ui::TextBox& txtSubject = control<ui::TextBox>(IDC_txtSubject);
    ui::RichText& rtfBody = control<ui::RichText>(IDC_rtfBody);

protected:
    void Form_Load() override;
    void Form_Resize() override;
    void Form_QueryUnload() override;

private:
    void connectHandlers();
    void readRecipient();
    void rescaled();
    void setMinimumSize();
    void layOut();
    void field_GotFocus(ui::TextBox& field);
    void txtTo_Change();
    void tbrBugReport_ButtonClick(int button);
    void send(std::int32_t importance);
    [[nodiscard]] MailReport report(std::int32_t importance) const;
    void reportFailedSend();

    Application& application_;
    FormattingBar formatting_;
    HoverLook hoverLook_;
    /// Pixels. Sizes are compared in whole pixels, since twips that are rounded may never meet them.
    ui::Size minimumSize_;
    /// A send is in progress or has failed: this window does not send again.
    bool sending_ = false;
};

/// Shows a fresh composer modally over `owner`.
void showBugReport(Application& application, ui::Window& owner);

}  // namespace vexa
