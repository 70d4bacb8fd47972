// "Select auto-update knowledgebase": which knowledgebase the add-in keeps up to date by itself.
#pragma once

#include "common/application.h"
#include "ui/form.h"
#include "ui/grid.h"

namespace vexa {

/// Changes the settings record alone; whoever shows it hands the choice on.
class frmSelectDefaultKB : public ui::Form {
public:
    frmSelectDefaultKB(Application& application, ui::Window& owner);

    ui::Label& lblInfo;
    ui::Grid& sftKnowledgebases;
    ui::Picture& picKB;
    ui::Button& cmdOK;
    ui::Button& cmdCancel;

protected:
    void Form_Load() override;

private:
    void fillList();
    void cmdOK_Click();

    Application& application_;
};

}  // namespace vexa
