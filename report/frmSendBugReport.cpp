#include "report/frmSendBugReport.h"

#include <algorithm>

#include "common/guarded.h"
#include "common/product_names.h"
#include "report/toolbar_buttons.h"

namespace vexa {
namespace {

constexpr int MINIMUM_WIDTH = 320;  // pixels
constexpr int MARGIN = 60;          // twips

// What the composer says.
constexpr const wchar_t* SENDING_FAILED = L"Error sending bug report: ";
constexpr const wchar_t* NO_ADD_IN = L"The add-in is not running.";

}  // namespace

frmSendBugReport::frmSendBugReport(Application& application, ui::Window& owner)
    : Form(application.screen.createDialog(IDD_frmSendBugReport, &owner)),
      application_(application),
      formatting_(application.screen, tbrProperties, cboFontname, cboFontsize, rtfBody),
      hoverLook_(application, cboFontname, cboFontsize) {
    tbrBugReport.setButtons(sendButtons());
    connectHandlers();
}

void frmSendBugReport::connectHandlers() {
    tbrBugReport.onButtonClick = [this](int button) { tbrBugReport_ButtonClick(button); };
    txtTo.onChange = [this] { txtTo_Change(); };
    for (ui::TextBox* field : {&txtTo, &txtCc, &txtSubject})
        field->onGotFocus = [this, field] { field_GotFocus(*field); };
    window().onRescale = [this] { rescaled(); };
    rtfBody.onGotFocus = [this] { formatting_.enable(true); };
    rtfBody.onSelectionChange = [this] { formatting_.followSelection(); };
}

// --- Opening, sizes and closing ---------------------------------------------------------------------------

void frmSendBugReport::Form_Load() {
    attempt([&] { readRecipient(); });
    txtTo_Change();
    rescaled();
    formatting_.enable(false);
    attempt([&] { formatting_.fillFontnames(); });
    attempt([&] { formatting_.fillFontsizes(); });
    attempt([&] { hoverLook_.start(); });
    Form_Resize();
}

void frmSendBugReport::readRecipient() {
    txtTo.setText(application_.readText(RootKey, valueName::SendTo, L""));
}

/// What the controls' own sizes decide, which change with the resolution.
void frmSendBugReport::rescaled() {
    attempt([&] { setMinimumSize(); });
    attempt([&] { formatting_.placeCombos(); });
}

void frmSendBugReport::setMinimumSize() {
    minimumSize_ = {MINIMUM_WIDTH, rtfBody.bounds().top + 3 * txtSubject.bounds().height};
}

void frmSendBugReport::Form_Resize() {
    attempt([&] {
        const ui::Size size = window().outerSize();
        const ui::Size corrected{std::max(size.width, minimumSize_.width),
                                 std::max(size.height, minimumSize_.height)};
        // A corrected size comes back as a resize of its own, which does the layout.
        if (corrected == size)
            layOut();
        else
            window().setOuterSize(corrected);
    });
}

void frmSendBugReport::layOut() {
    const ui::Size inner = window().innerSize();
    const int margin =
        static_cast<int>(MARGIN * window().magnification() / application_.screen.twipsPerPixelX());
    const auto widen = [&](ui::Control& control, int height) {
        const ui::Rect place = control.bounds();
        control.move({place.left, place.top, std::max(0, inner.width - place.left - margin), height});
    };
    widen(rtfBody, std::max(0, inner.height - rtfBody.bounds().top - margin));
    for (ui::TextBox* field : {&txtSubject, &txtCc, &txtTo}) widen(*field, field->bounds().height);
}

void frmSendBugReport::Form_QueryUnload() { hoverLook_.stop(); }

// --- Address and subject ----------------------------------------------------------------------------------

void frmSendBugReport::field_GotFocus(ui::TextBox& field) {
    attempt([&] { field.select(0, static_cast<int>(field.text().size())); });
    formatting_.enable(false);
}

void frmSendBugReport::txtTo_Change() {
    attempt([&] { tbrBugReport.setButtonEnabled(SEND_BUTTON, !txtTo.text().empty()); });
}

// --- Sending ----------------------------------------------------------------------------------------------

void frmSendBugReport::tbrBugReport_ButtonClick(int button) {
    try {
        const std::int32_t code = formatting_.importance();
        if (button == SEND_BUTTON && !sending_) send(code);
    } catch (...) {
        reportFailedSend();
    }
    attempt([&] { application_.SetPointerDefault(); });
}

void frmSendBugReport::send(std::int32_t importanceCode) {
    sending_ = true;
    tbrBugReport.setButtonEnabled(SEND_BUTTON, false);
    application_.SetPointerHourglass();
    const MailReport mail = report(importanceCode);
    // The call's own reference: the page may close while the add-in works.
    const std::shared_ptr<AddIn> addIn = application_.addIn;
    if (!addIn) throw Error(NO_ADD_IN);
    addIn->SendMail(mail);
    sending_ = false;
    Unload();
}

MailReport frmSendBugReport::report(std::int32_t importanceCode) const {
    return {txtSubject.text(), rtfBody.text(), rtfBody.rtf(), txtTo.text(),
            txtCc.text(),      importanceCode, true};
}

void frmSendBugReport::reportFailedSend() {
    attempt([&] {
        application_.screen.showMessage(&window(), {SENDING_FAILED + currentErrorDescription(), PRODUCT_TITLE,
                                                    ui::MessageIcon::exclamation, ui::MessageButtons::ok});
    });
}

void showBugReport(Application& application, ui::Window& owner) {
    frmSendBugReport(application, owner).Show();
}

}  // namespace vexa
