// What the formatting toolbar and the font combos do to the selection, and how they follow it.
#include "common/guarded.h"
#include "report/frmSendBugReport.h"
#include "report/toolbar_buttons.h"

namespace vexa {
namespace {

constexpr int INDENT_STEP = 283;  // twips: half a centimetre

/// The number of an entry of the font size combo, which may begin with a blank.
int points(const std::wstring& entry) { return std::stoi(entry); }

}  // namespace

// --- The controls follow the selection --------------------------------------------------------------------

void frmSendBugReport::rtfBody_SelChange() {
    attempt([&] {
        selectFontname(rtfBody.fontName());
        selectFontsize(rtfBody.fontSize());
        tbrProperties.setPressed(propertyButton::bold, rtfBody.bold() == true);
        tbrProperties.setPressed(propertyButton::italic, rtfBody.italic() == true);
        tbrProperties.setPressed(propertyButton::underline, rtfBody.underline() == true);
        showAlignment(rtfBody.alignment());
        tbrProperties.setPressed(propertyButton::bulletIndent, rtfBody.bulleted() == true);
    });
}

void frmSendBugReport::selectFontname(const std::optional<std::wstring>& name) {
    for (int index = 0; index < cboFontname.count(); ++index)
        if (cboFontname.item(index) == name) return cboFontname.select(index);
}

void frmSendBugReport::selectFontsize(const std::optional<double>& size) {
    for (int index = 0; index < cboFontsize.count(); ++index)
        if (points(cboFontsize.item(index)) == size) return cboFontsize.select(index);
}

void frmSendBugReport::showAlignment(const std::optional<ui::Alignment>& alignment) {
    tbrProperties.setPressed(propertyButton::leftAlign, alignment == ui::Alignment::left);
    tbrProperties.setPressed(propertyButton::center, alignment == ui::Alignment::centre);
    tbrProperties.setPressed(propertyButton::rightAlign, alignment == ui::Alignment::right);
}

// --- Toolbar ----------------------------------------------------------------------------------------------

void frmSendBugReport::tbrProperties_ButtonClick(int button) {
    attempt([&] { format(button); });
}

void frmSendBugReport::format(int button) {
    using namespace propertyButton;
    switch (button) {
        case highImportance: return releaseOtherImportance(highImportance, lowImportance);
        case lowImportance: return releaseOtherImportance(lowImportance, highImportance);
        case bold:
            rtfBody.setBold(rtfBody.bold() != true);
            return tbrProperties.setPressed(bold, rtfBody.bold() == true);
        case italic:
            rtfBody.setItalic(rtfBody.italic() != true);
            return tbrProperties.setPressed(italic, rtfBody.italic() == true);
        case underline:
            rtfBody.setUnderline(rtfBody.underline() != true);
            return tbrProperties.setPressed(underline, rtfBody.underline() == true);
        case leftAlign: return align(ui::Alignment::left);
        case center: return align(ui::Alignment::centre);
        case rightAlign: return align(ui::Alignment::right);
        case bulletIndent: return toggleBullets();
        case decreaseIndent: return indentBy(-indentStep());
        case increaseIndent: return indentBy(indentStep());
        default: return;  // "Numeration" is accepted and changes nothing
    }
}

void frmSendBugReport::releaseOtherImportance(int clicked, int other) {
    if (tbrProperties.pressed(clicked)) tbrProperties.setPressed(other, false);
}

void frmSendBugReport::align(ui::Alignment alignment) {
    rtfBody.setAlignment(alignment);
    showAlignment(alignment);
}

void frmSendBugReport::toggleBullets() {
    const std::optional<bool> bulleted = rtfBody.bulleted();
    // Of a mixed selection some paragraphs have their bullets and their indents already.
    if (bulleted == false) rtfBody.setBulletIndent(indentStep());
    rtfBody.setBulleted(bulleted != true);
    tbrProperties.setPressed(propertyButton::bulletIndent, rtfBody.bulleted() == true);
}

void frmSendBugReport::indentBy(double pixels) {
    // A mixed indent has no value to start from: value() throws and the click ends.
    if (rtfBody.bulleted() == true)
        rtfBody.setHangingIndent(rtfBody.hangingIndent().value() + pixels);
    else
        rtfBody.setLeftIndent(rtfBody.leftIndent().value() + pixels);
}

double frmSendBugReport::indentStep() const { return INDENT_STEP / application_.screen.twipsPerPixelX(); }

void frmSendBugReport::tbrProperties_ButtonMenuClick(const std::wstring& key) {
    attempt([&] {
        if (const auto colour = menuColour(key)) rtfBody.setColour(*colour);
    });
}

// --- Font combos ------------------------------------------------------------------------------------------

void frmSendBugReport::cboFontname_Click() {
    attempt([&] { rtfBody.setFontName(cboFontname.item(cboFontname.selectedIndex())); });
}

void frmSendBugReport::cboFontsize_Click() {
    attempt([&] { rtfBody.setFontSize(points(cboFontsize.item(cboFontsize.selectedIndex()))); });
}

}  // namespace vexa
