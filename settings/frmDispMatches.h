// "Highlights": how the search marks the matching passages of a mail, and in which colours.
#pragma once

#include <array>
#include <functional>

#include "settings/frmDispMatches.ids.h"
#include "settings/setting_row.h"
#include "ui/form.h"

namespace vexa {

class frmDispMatches : public ui::OkCancelForm {
public:
    frmDispMatches(Application& application, ui::Window& owner);

    std::array<std::reference_wrapper<ui::OptionButton>, 2> optDisplayMatches{
        control<ui::OptionButton>(IDC_optDisplayMatches_0),
        control<ui::OptionButton>(IDC_optDisplayMatches_1)};
    ui::Label& lblHotspotColor = control<ui::Label>(IDC_lblHotspotColor);
    ui::Swatch& lblSelHotspotColor = control<ui::Swatch>(IDC_lblSelHotspotColor);
    std::array<std::reference_wrapper<ui::Swatch>, 6> lblPenalty{
        control<ui::Swatch>(IDC_lblPenalty_0), control<ui::Swatch>(IDC_lblPenalty_1),
        control<ui::Swatch>(IDC_lblPenalty_2), control<ui::Swatch>(IDC_lblPenalty_3),
        control<ui::Swatch>(IDC_lblPenalty_4), control<ui::Swatch>(IDC_lblPenalty_5)};
    ui::CheckBox& chkKeepHighlights = control<ui::CheckBox>(IDC_chkKeepHighlights);

protected:
    void Form_Load() override;
    void cmdOK_Click() override;

private:
    void optDisplayMatches_Click();
    void lblSelHotspotColor_Click();
    void lblPenalty_Click(std::size_t index);

    void pickColour(ui::Swatch& swatch, const std::wstring& title);

    Application& application_;
    SettingTable table_;
};

}  // namespace vexa
