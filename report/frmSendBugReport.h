// "Send report": a small mail composer in which the user writes a problem report, which the add-in sends.
#pragma once

#include <memory>
#include <optional>

#include "common/CTimer.h"
#include "common/application.h"
#include "ui/form.h"
#include "ui/richtext.h"
#include "ui/toolbar.h"

namespace vexa {

class frmSendBugReport : public ui::Form {
public:
    frmSendBugReport(Application& application, ui::Window& owner);
    ~frmSendBugReport() override;

    ui::Toolbar& tbrBugReport;
    ui::Toolbar& tbrProperties;
    ui::ComboBox& cboFontname;
    ui::ComboBox& cboFontsize;
    ui::TextBox& txtTo;
    ui::TextBox& txtCc;
    ui::TextBox& txtSubject;
    ui::RichText& rtfBody;

protected:
    void Form_Load() override;
    void Form_Resize() override;
    void Form_QueryUnload() override;

private:
    void connectHandlers();
    void readRecipient();
    void rescaled();
    void setMinimumSize();
    void placeCombos();
    void placeCombo(ui::ComboBox& combo, int button);
    void disableFormatting() { enableFormatting(false); }
    void fillFontnames();
    void fillFontsizes();
    void startHoverTimer();
    void stopHoverTimer() noexcept;
    void layOut();

    /// Switches everything that formats the body; the importance buttons stay as they are.
    void enableFormatting(bool on);
    void field_GotFocus(ui::TextBox& field);
    void txtTo_Change();
    void rtfBody_SelChange();
    void selectFontname(const std::optional<std::wstring>& name);
    void selectFontsize(const std::optional<double>& points);

    void tbrProperties_ButtonClick(int button);
    void tbrProperties_ButtonMenuClick(const std::wstring& key);
    void format(int button);
    void releaseOtherImportance(int clicked, int other);
    void align(ui::Alignment alignment);
    void showAlignment(const std::optional<ui::Alignment>& alignment);
    void toggleBullets();
    void indentBy(double pixels);
    /// Pixels.
    [[nodiscard]] double indentStep() const;

    void cboFontname_Click();
    void cboFontsize_Click();
    void hoverTimer_Notify();
    void drawFlat(ui::ComboBox& combo);

    void tbrBugReport_ButtonClick(int button);
    void send(std::int32_t importance);
    [[nodiscard]] std::int32_t importance() const;
    [[nodiscard]] MailReport report(std::int32_t importance) const;
    void reportFailedSend();

    Application& application_;
    /// Pixels. Sizes are compared in whole pixels, since twips that are rounded may never meet them.
    ui::Size minimumSize_;
    std::shared_ptr<CTimer> hoverTimer_;
    /// A send is in progress or has failed: this window does not send again.
    bool sending_ = false;
};

/// Shows a fresh composer modally over `owner`.
void showBugReport(Application& application, ui::Window& owner);

}  // namespace vexa
