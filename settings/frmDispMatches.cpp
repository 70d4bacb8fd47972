#include "settings/frmDispMatches.h"

#include "common/guarded.h"

namespace vexa {
namespace {

constexpr const wchar_t* SWATCH_TOOLTIP = L"Click here to select a color";

}  // namespace

frmDispMatches::frmDispMatches(Application& application, ui::Window& owner)
    : OkCancelForm(application.screen.createDialog(IDD_frmDispMatches, &owner)),
      application_(application),
      table_{{optDisplayMatches[0], &Settings::DisplayHotSpots},
             {chkKeepHighlights, &Settings::KeepHighlights},
             {lblSelHotspotColor, &Settings::ColorHotSpots},
             {lblPenalty[0], &Settings::Penalty0},
             {lblPenalty[1], &Settings::Penalty1},
             {lblPenalty[2], &Settings::Penalty2},
             {lblPenalty[3], &Settings::Penalty3},
             {lblPenalty[4], &Settings::Penalty4},
             {lblPenalty[5], &Settings::Penalty5}} {
    for (ui::OptionButton& option : optDisplayMatches) option.onClick = [this] { optDisplayMatches_Click(); };
    lblSelHotspotColor.onClick = [this] { lblSelHotspotColor_Click(); };
    lblSelHotspotColor.setTooltip(SWATCH_TOOLTIP);
    lblSelHotspotColor.setDescription(SWATCH_TOOLTIP);
    for (std::size_t index = 0; index < lblPenalty.size(); ++index) {
        lblPenalty[index].get().onClick = [this, index] { lblPenalty_Click(index); };
        lblPenalty[index].get().setTooltip(SWATCH_TOOLTIP);
        lblPenalty[index].get().setDescription(SWATCH_TOOLTIP);
    }
}

void frmDispMatches::Form_Load() {
    loadTable(table_, application_.settings);
    // Of two options that are both stored the second wins.
    attempt([&] {
        if (application_.settings.DisplayTextMarks) optDisplayMatches[1].get().setSelected(true);
    });
}

void frmDispMatches::optDisplayMatches_Click() {
    attempt([&] {
        const bool hotspots = optDisplayMatches[0].get().selected();
        lblSelHotspotColor.setEnabled(hotspots);
        lblHotspotColor.setEnabled(hotspots);
        for (ui::Swatch& swatch : lblPenalty) swatch.setEnabled(optDisplayMatches[1].get().selected());
    });
}

void frmDispMatches::lblSelHotspotColor_Click() { pickColour(lblSelHotspotColor, L""); }

void frmDispMatches::lblPenalty_Click(std::size_t index) {
    pickColour(lblPenalty[index], lblPenalty[index].get().text());
}

void frmDispMatches::pickColour(ui::Swatch& swatch, const std::wstring& title) {
    attempt([&] {
        const auto chosen = application_.screen.chooseColour(window(), swatch.colour(), title);
        if (chosen) swatch.setColour(*chosen);
    });
}

void frmDispMatches::cmdOK_Click() {
    storeTable(table_, application_);
    application_.settings.DisplayTextMarks = !application_.settings.DisplayHotSpots;
}

}  // namespace vexa
