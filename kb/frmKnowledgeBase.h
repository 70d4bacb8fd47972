// "Knowledgebase": the base folder below which the add-in keeps its knowledgebases.
#pragma once

#include "common/application.h"
#include "kb/folder_list.h"
#include "kb/frmKnowledgeBase.ids.h"
#include "ui/form.h"
#include "ui/grid.h"

namespace vexa {

/// Changes the settings record alone.
class frmKnowledgeBase : public ui::OkCancelForm {
public:
    frmKnowledgeBase(Application& application, ui::Window& owner);

    ui::ComboBox& drvVexaBaseDir = control<ui::ComboBox>(IDC_drvVexaBaseDir);
    ui::Grid& dirVexaBaseDir = control<ui::Grid>(IDC_dirVexaBaseDir);
    ui::TextBox& txtPath = control<ui::TextBox>(IDC_txtPath);  ///< the folder that OK takes
    ui::Button& cmdNewDirectory = control<ui::Button>(IDC_cmdNewDirectory);
    /// Disabled: nothing would happen at its click.
    ui::Button& cmdRepository = control<ui::Button>(IDC_cmdRepository);

    /// The folder that is shown.
    [[nodiscard]] const std::wstring& folder() const { return folders_.path(); }

protected:
    void Form_Load() override;
    void cmdOK_Click() override;

private:
    void listDrives();
    void selectDrive(const std::wstring& drive);
    void drvVexaBaseDir_Change();
    void cmdNewDirectory_Click();
    void createFolder(const std::wstring& name);
    void report(const ui::Message& failure);

    Application& application_;
    FolderList folders_;
};

}  // namespace vexa
