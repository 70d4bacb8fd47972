// "Highlights": how the search marks the matching passages of a mail, and in which colours.
#pragma once

#include <array>
#include <functional>

#include "settings/setting_row.h"
#include "ui/form.h"

namespace vexa {

class frmDispMatches : public ui::Form {
public:
    frmDispMatches(Application& application, ui::Window& owner);

    std::array<std::reference_wrapper<ui::OptionButton>, 2> optDisplayMatches;
    ui::Label& lblHotspotColor;
    ui::Swatch& lblSelHotspotColor;
    std::array<std::reference_wrapper<ui::Swatch>, 6> lblPenalty;
    ui::CheckBox& chkKeepHighlights;
    ui::Button& cmdOk;
    ui::Button& cmdCancel;

protected:
    void Form_Load() override;

private:
    void optDisplayMatches_Click();
    void lblSelHotspotColor_Click();
    void lblPenalty_Click(std::size_t index);
    void cmdOK_Click();

    void pickColour(ui::Swatch& swatch, const std::wstring& title);

    Application& application_;
    SettingTable table_;
};

}  // namespace vexa
