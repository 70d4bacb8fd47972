// "Select auto-update knowledgebase": which knowledgebase the add-in keeps up to date by itself.
#pragma once

#include "common/application.h"
#include "kb/frmSelectDefaultKB.ids.h"
#include "ui/form.h"
#include "ui/grid.h"

namespace vexa {

/// Changes the settings record alone; whoever shows it hands the choice on.
class frmSelectDefaultKB : public ui::Form {
public:
    frmSelectDefaultKB(Application& application, ui::Window& owner);

    ui::Label& lblInfo = control<ui::Label>(IDC_lblInfo);
    ui::Grid& sftKnowledgebases = control<ui::Grid>(IDC_sftKnowledgebases);
    ui::Picture& picKB = control<ui::Picture>(IDC_picKB);
    ui::Button& cmdOK = control<ui::Button>(IDC_cmdOk);
    ui::Button& cmdCancel = control<ui::Button>(IDC_cmdCancel);

protected:
    void Form_Load() override;

private:
    void fillList();
    void cmdOK_Click();

    Application& application_;
};

}  // namespace vexa
