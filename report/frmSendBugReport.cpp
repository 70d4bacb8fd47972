#include "report/frmSendBugReport.h"

#include <algorithm>

#include "common/guarded.h"
#include "common/product_names.h"
#include "report/flat_combo.h"
#include "report/frmSendBugReport.ids.h"
#include "report/toolbar_buttons.h"

namespace vexa {
namespace {

constexpr int MINIMUM_WIDTH = 320;   // pixels
constexpr int MARGIN = 60;           // twips
constexpr int HOVER_INTERVAL = 150;  // milliseconds
constexpr int BODY_FONT_SIZE = 8;    // points
/// The design's font, then what stands in for it where the screen lacks it.
constexpr const wchar_t* bodyFonts[] = {L"MS Sans Serif", L"Microsoft Sans Serif", L"Tahoma", L"Arial"};

/// The blank keeps the column of numbers aligned.
constexpr const wchar_t* fontSizes[] = {L" 8", L"10", L"12", L"14", L"18", L"24", L"36"};

// What the composer says.
constexpr const wchar_t* SENDING_FAILED = L"Error sending bug report: ";
constexpr const wchar_t* NO_ADD_IN = L"The add-in is not running.";

/// One of the screen's fonts, so that the combo can show it.
std::wstring bodyFont(const std::vector<std::wstring>& fonts) {
    for (const wchar_t* font : bodyFonts)
        if (std::ranges::find(fonts, font) != fonts.end()) return font;
    return fonts.empty() ? bodyFonts[0] : fonts.front();
}

}  // namespace

frmSendBugReport::frmSendBugReport(Application& application, ui::Window& owner)
    : Form(application.screen.createDialog(IDD_frmSendBugReport, &owner)),
      tbrBugReport(window().control<ui::Toolbar>(IDC_tbrBugReport)),
      tbrProperties(window().control<ui::Toolbar>(IDC_tbrProperties)),
      cboFontname(window().control<ui::ComboBox>(IDC_cboFontname)),
      cboFontsize(window().control<ui::ComboBox>(IDC_cboFontsize)),
      txtTo(window().control<ui::TextBox>(IDC_txtTo)),
      txtCc(window().control<ui::TextBox>(IDC_txtCc)),
      txtSubject(window().control<ui::TextBox>(IDC_txtSubject)),
      rtfBody(window().control<ui::RichText>(IDC_rtfBody)),
      application_(application) {
    tbrBugReport.setButtons(sendButtons());
    tbrProperties.setButtons(propertyButtons());
    connectHandlers();
}

frmSendBugReport::~frmSendBugReport() { stopHoverTimer(); }

void frmSendBugReport::connectHandlers() {
    tbrBugReport.onButtonClick = [this](int button) { tbrBugReport_ButtonClick(button); };
    tbrProperties.onButtonClick = [this](int button) { tbrProperties_ButtonClick(button); };
    tbrProperties.onMenuClick = [this](const std::wstring& key) { tbrProperties_ButtonMenuClick(key); };
    cboFontname.onClick = [this] { cboFontname_Click(); };
    cboFontsize.onClick = [this] { cboFontsize_Click(); };
    txtTo.onChange = [this] { txtTo_Change(); };
    for (ui::TextBox* field : {&txtTo, &txtCc, &txtSubject})
        field->onGotFocus = [this, field] { field_GotFocus(*field); };
    window().onRescale = [this] { rescaled(); };
    rtfBody.onGotFocus = [this] { enableFormatting(true); };
    rtfBody.onSelectionChange = [this] { rtfBody_SelChange(); };
}

// --- Opening, sizes and closing ---------------------------------------------------------------------------

void frmSendBugReport::Form_Load() {
    using Step = void (frmSendBugReport::*)();
    constexpr Step steps[] = {&frmSendBugReport::readRecipient,  &frmSendBugReport::txtTo_Change,
                              &frmSendBugReport::rescaled,       &frmSendBugReport::disableFormatting,
                              &frmSendBugReport::fillFontnames,  &frmSendBugReport::fillFontsizes,
                              &frmSendBugReport::startHoverTimer};
    for (const Step step : steps) attempt([&] { (this->*step)(); });
    Form_Resize();
}

void frmSendBugReport::readRecipient() {
    txtTo.setText(application_.readText(RootKey, valueName::SendTo, L""));
}

/// What the controls' own sizes decide, which change with the resolution.
void frmSendBugReport::rescaled() {
    attempt([&] { setMinimumSize(); });
    attempt([&] { placeCombos(); });
}

void frmSendBugReport::setMinimumSize() {
    minimumSize_ = {MINIMUM_WIDTH, rtfBody.bounds().top + 3 * txtSubject.bounds().height};
}

void frmSendBugReport::placeCombos() {
    placeCombo(cboFontname, propertyButton::fontname);
    placeCombo(cboFontsize, propertyButton::fontsize);
}

void frmSendBugReport::placeCombo(ui::ComboBox& combo, int button) {
    const ui::Rect before = combo.bounds();
    tbrProperties.setButtonWidth(button, before.width);
    const ui::Rect toolbar = tbrProperties.bounds();
    const ui::Rect place = tbrProperties.buttonBounds(button);
    combo.move({toolbar.left + place.left, toolbar.top + place.top, place.width, before.height});
}

void frmSendBugReport::fillFontnames() {
    std::vector<std::wstring> fonts;
    attempt([&] { fonts = application_.screen.fonts(); });
    rtfBody.setDefaultFont(bodyFont(fonts), BODY_FONT_SIZE);
    for (const std::wstring& font : fonts) cboFontname.add(font);
    selectFontname(rtfBody.fontName());
}

void frmSendBugReport::fillFontsizes() {
    for (const wchar_t* size : fontSizes) cboFontsize.add(size);
    selectFontsize(rtfBody.fontSize());
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

void frmSendBugReport::Form_QueryUnload() { stopHoverTimer(); }

// --- Address and subject ----------------------------------------------------------------------------------

void frmSendBugReport::field_GotFocus(ui::TextBox& field) {
    attempt([&] { field.select(0, static_cast<int>(field.text().size())); });
    enableFormatting(false);
}

void frmSendBugReport::txtTo_Change() {
    attempt([&] { tbrBugReport.setButtonEnabled(SEND_BUTTON, !txtTo.text().empty()); });
}

void frmSendBugReport::enableFormatting(bool on) {
    attempt([&] {
        for (int button = propertyButton::fontname; button <= tbrProperties.count(); ++button)
            tbrProperties.setButtonEnabled(button, on);
        for (ui::ComboBox* combo : {&cboFontname, &cboFontsize}) combo->setEnabled(on);
    });
}

// --- The hover timer --------------------------------------------------------------------------------------

void frmSendBugReport::startHoverTimer() {
    hoverTimer_ = CTimer::create(application_.platform.timers);
    hoverTimer_->Interval = HOVER_INTERVAL;
    hoverTimer_->Notify = [this] { hoverTimer_Notify(); };
    hoverTimer_->StartTimer();
}

void frmSendBugReport::stopHoverTimer() noexcept {
    if (!hoverTimer_) return;
    attempt([&] { hoverTimer_->StopTimer(); });
    // The timer stays in its slot and a tick may be on its way: neither may reach a closed window.
    hoverTimer_->Notify = nullptr;
    hoverTimer_.reset();
}

void frmSendBugReport::hoverTimer_Notify() {
    attempt([&] { drawFlat(cboFontname); });
    attempt([&] { drawFlat(cboFontsize); });
}

void frmSendBugReport::drawFlat(ui::ComboBox& combo) {
    const auto state = hoverState(combo);
    if (!state) return;
    const ui::Rect bounds = combo.bounds();
    combo.draw(flatCombo(*state, {bounds.width, bounds.height}, application_.screen.scrollThumbWidth()));
}

// --- Sending ----------------------------------------------------------------------------------------------

void frmSendBugReport::tbrBugReport_ButtonClick(int button) {
    try {
        const std::int32_t code = importance();
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

std::int32_t frmSendBugReport::importance() const {
    if (tbrProperties.pressed(propertyButton::highImportance)) return 2;
    if (tbrProperties.pressed(propertyButton::lowImportance)) return 1;
    return 0;
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
