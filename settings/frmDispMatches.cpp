#include "settings/frmDispMatches.h"

#include "common/guarded.h"
#include "settings/frmDispMatches.ids.h"
#include "settings/setting_update.h"
#include "ui/dialog_ids.h"

namespace vexa {
namespace {

constexpr const wchar_t* SWATCH_TOOLTIP = L"Click here to select a color";

}  // namespace

frmDispMatches::frmDispMatches(Application& application, ui::Window& owner)
    : Form(application.screen.createDialog(IDD_frmDispMatches, &owner)),
      optDisplayMatches{window().control<ui::OptionButton>(IDC_optDisplayMatches_0),
                        window().control<ui::OptionButton>(IDC_optDisplayMatches_1)},
      lblHotspotColor(window().control<ui::Label>(IDC_lblHotspotColor)),
      lblSelHotspotColor(window().control<ui::Swatch>(IDC_lblSelHotspotColor)),
      lblPenalty{
          window().control<ui::Swatch>(IDC_lblPenalty_0), window().control<ui::Swatch>(IDC_lblPenalty_1),
          window().control<ui::Swatch>(IDC_lblPenalty_2), window().control<ui::Swatch>(IDC_lblPenalty_3),
          window().control<ui::Swatch>(IDC_lblPenalty_4), window().control<ui::Swatch>(IDC_lblPenalty_5)},
      chkKeepHighlights(window().control<ui::CheckBox>(IDC_chkKeepHighlights)),
      cmdOk(window().control<ui::Button>(IDC_cmdOk)),
      cmdCancel(window().control<ui::Button>(IDC_cmdCancel)),
      application_(application) {
    for (ui::OptionButton& option : optDisplayMatches) option.onClick = [this] { optDisplayMatches_Click(); };
    lblSelHotspotColor.onClick = [this] { lblSelHotspotColor_Click(); };
    lblSelHotspotColor.setTooltip(SWATCH_TOOLTIP);
    lblSelHotspotColor.setDescription(SWATCH_TOOLTIP);
    for (std::size_t index = 0; index < lblPenalty.size(); ++index) {
        lblPenalty[index].get().onClick = [this, index] { lblPenalty_Click(index); };
        lblPenalty[index].get().setTooltip(SWATCH_TOOLTIP);
        lblPenalty[index].get().setDescription(SWATCH_TOOLTIP);
    }
    cmdOk.onClick = [this] { cmdOK_Click(); };
    cmdCancel.onClick = [this] { Unload(); };
}

void frmDispMatches::Form_Load() {
    const Settings& settings = application_.settings;
    attempt([&] { optDisplayMatches[0].get().setSelected(settings.DisplayHotSpots); });
    attempt([&] { optDisplayMatches[1].get().setSelected(settings.DisplayTextMarks); });
    attempt([&] { chkKeepHighlights.setChecked(settings.KeepHighlights); });
    attempt([&] { lblSelHotspotColor.setColour(settings.ColorHotSpots); });
    for (std::size_t level = 0; level < lblPenalty.size(); ++level)
        attempt([&] { lblPenalty[level].get().setColour(settings.Penalty[level]); });
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
    attempt([&] { store(); });
    Unload();
}

void frmDispMatches::store() {
    Settings& settings = application_.settings;
    SettingUpdate update(application_.flags);
    update(settings.DisplayHotSpots, optDisplayMatches[0].get().selected());
    settings.DisplayTextMarks = !settings.DisplayHotSpots;
    update(settings.KeepHighlights, chkKeepHighlights.checked());
    update(settings.ColorHotSpots, lblSelHotspotColor.colour());
    for (std::size_t level = 0; level < lblPenalty.size(); ++level)
        update(settings.Penalty[level], lblPenalty[level].get().colour());
}

}  // namespace vexa
