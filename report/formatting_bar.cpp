#include "report/formatting_bar.h"

#include <algorithm>
#include <vector>

#include "common/guarded.h"
#include "report/toolbar_buttons.h"

namespace vexa {
namespace {

constexpr int INDENT_STEP = 283;   // twips: half a centimetre
constexpr int BODY_FONT_SIZE = 8;  // points
/// The design's font, then what stands in for it where the screen lacks it.
constexpr const wchar_t* bodyFonts[] = {L"MS Sans Serif", L"Microsoft Sans Serif", L"Tahoma", L"Arial"};

/// The blank keeps the column of numbers aligned.
constexpr const wchar_t* fontSizes[] = {L" 8", L"10", L"12", L"14", L"18", L"24", L"36"};

/// One of the screen's fonts, so that the combo can show it.
std::wstring bodyFont(const std::vector<std::wstring>& fonts) {
    for (const wchar_t* font : bodyFonts)
        if (std::ranges::find(fonts, font) != fonts.end()) return font;
    return fonts.empty() ? bodyFonts[0] : fonts.front();
}

/// The number of an entry of the font size combo, which may begin with a blank.
int points(const std::wstring& entry) { return std::stoi(entry); }

}  // namespace

FormattingBar::FormattingBar(ui::Screen& screen, ui::Toolbar& toolbar, ui::ComboBox& fontnames,
                             ui::ComboBox& fontsizes, ui::RichText& body)
    : screen_(screen), toolbar_(toolbar), fontnames_(fontnames), fontsizes_(fontsizes), body_(body) {
    toolbar_.setButtons(propertyButtons());
    toolbar_.onButtonClick = [this](int button) { attempt([&] { buttonClicked(button); }); };
    toolbar_.onMenuClick = [this](const std::wstring& key) { attempt([&] { colourChosen(key); }); };
    fontnames_.onClick = [this] { attempt([&] { fontnameChosen(); }); };
    fontsizes_.onClick = [this] { attempt([&] { fontsizeChosen(); }); };
}

// --- How it looks -----------------------------------------------------------------------------------------

void FormattingBar::fillFontnames() {
    std::vector<std::wstring> fonts;
    attempt([&] { fonts = screen_.fonts(); });
    body_.setDefaultFont(bodyFont(fonts), BODY_FONT_SIZE);
    for (const std::wstring& font : fonts) fontnames_.add(font);
    selectFontname(body_.fontName());
}

void FormattingBar::fillFontsizes() {
    for (const wchar_t* size : fontSizes) fontsizes_.add(size);
    selectFontsize(body_.fontSize());
}

void FormattingBar::placeCombos() {
    placeCombo(fontnames_, propertyButton::fontname);
    placeCombo(fontsizes_, propertyButton::fontsize);
}

void FormattingBar::placeCombo(ui::ComboBox& combo, int button) {
    const ui::Rect before = combo.bounds();
    toolbar_.setButtonWidth(button, before.width);
    const ui::Rect bar = toolbar_.bounds();
    const ui::Rect place = toolbar_.buttonBounds(button);
    combo.move({bar.left + place.left, bar.top + place.top, place.width, before.height});
}

void FormattingBar::enable(bool on) noexcept {
    attempt([&] {
        for (int button = propertyButton::fontname; button <= toolbar_.count(); ++button)
            toolbar_.setButtonEnabled(button, on);
        for (ui::ComboBox* combo : {&fontnames_, &fontsizes_}) combo->setEnabled(on);
    });
}

std::int32_t FormattingBar::importance() const {
    if (toolbar_.pressed(propertyButton::highImportance)) return 2;
    if (toolbar_.pressed(propertyButton::lowImportance)) return 1;
    return 0;
}

// --- It follows the selection -----------------------------------------------------------------------------

void FormattingBar::followSelection() noexcept {
    attempt([&] {
        selectFontname(body_.fontName());
        selectFontsize(body_.fontSize());
        show(propertyButton::bold, ui::Effect::bold);
        show(propertyButton::italic, ui::Effect::italic);
        show(propertyButton::underline, ui::Effect::underline);
        showAlignment(body_.alignment());
        toolbar_.setPressed(propertyButton::bulletIndent, body_.bulleted() == true);
    });
}

void FormattingBar::show(int button, ui::Effect effect) {
    toolbar_.setPressed(button, body_.effect(effect) == true);
}

void FormattingBar::selectFontname(const std::optional<std::wstring>& name) {
    for (int index = 0; index < fontnames_.count(); ++index)
        if (fontnames_.item(index) == name) return fontnames_.select(index);
}

void FormattingBar::selectFontsize(const std::optional<double>& size) {
    for (int index = 0; index < fontsizes_.count(); ++index)
        if (points(fontsizes_.item(index)) == size) return fontsizes_.select(index);
}

void FormattingBar::showAlignment(const std::optional<ui::Alignment>& alignment) {
    toolbar_.setPressed(propertyButton::leftAlign, alignment == ui::Alignment::left);
    toolbar_.setPressed(propertyButton::center, alignment == ui::Alignment::centre);
    toolbar_.setPressed(propertyButton::rightAlign, alignment == ui::Alignment::right);
}

// --- The selection follows it -----------------------------------------------------------------------------

void FormattingBar::buttonClicked(int button) {
    using namespace propertyButton;
    switch (button) {
        case highImportance: return releaseOtherImportance(highImportance, lowImportance);
        case lowImportance: return releaseOtherImportance(lowImportance, highImportance);
        case bold: return toggle(bold, ui::Effect::bold);
        case italic: return toggle(italic, ui::Effect::italic);
        case underline: return toggle(underline, ui::Effect::underline);
        case leftAlign: return align(ui::Alignment::left);
        case center: return align(ui::Alignment::centre);
        case rightAlign: return align(ui::Alignment::right);
        case bulletIndent: return toggleBullets();
        case decreaseIndent: return indentBy(-indentStep());
        case increaseIndent: return indentBy(indentStep());
        default: return;  // "Numeration" is accepted and changes nothing
    }
}

void FormattingBar::toggle(int button, ui::Effect effect) {
    body_.setEffect(effect, body_.effect(effect) != true);
    show(button, effect);
}

void FormattingBar::releaseOtherImportance(int clicked, int other) {
    if (toolbar_.pressed(clicked)) toolbar_.setPressed(other, false);
}

void FormattingBar::align(ui::Alignment alignment) {
    body_.setAlignment(alignment);
    showAlignment(alignment);
}

void FormattingBar::toggleBullets() {
    const std::optional<bool> bulleted = body_.bulleted();
    // Of a mixed selection some paragraphs have their bullets and their indents already.
    if (bulleted == false) body_.setBulletIndent(indentStep());
    body_.setBulleted(bulleted != true);
    toolbar_.setPressed(propertyButton::bulletIndent, body_.bulleted() == true);
}

void FormattingBar::indentBy(double pixels) {
    // A mixed indent has no value to start from: value() throws and the click ends.
    if (body_.bulleted() == true)
        body_.setHangingIndent(body_.hangingIndent().value() + pixels);
    else
        body_.setLeftIndent(body_.leftIndent().value() + pixels);
}

double FormattingBar::indentStep() const { return INDENT_STEP / screen_.twipsPerPixelX(); }

void FormattingBar::colourChosen(const std::wstring& key) {
    if (const auto colour = menuColour(key)) body_.setColour(*colour);
}

void FormattingBar::fontnameChosen() { body_.setFontName(fontnames_.item(fontnames_.selectedIndex())); }

void FormattingBar::fontsizeChosen() {
    body_.setFontSize(points(fontsizes_.item(fontsizes_.selectedIndex())));
}

}  // namespace vexa
