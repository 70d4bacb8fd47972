#include "kb/frmNewFolder.h"

#include "common/guarded.h"

namespace vexa {

frmNewFolder::frmNewFolder(Application& application, ui::Window& owner)
    : OkCancelForm(application.screen.createDialog(IDD_frmNewFolder, &owner)) {
    txtFolderName.onChange = [this] { attempt([&] { txtFolderName_Change(); }); };
}

void frmNewFolder::Form_Load() {
    attempt([&] { txtFolderName_Change(); });
}

void frmNewFolder::txtFolderName_Change() { cmdOk.setEnabled(!txtFolderName.text().empty()); }

void frmNewFolder::cmdOK_Click() {
    attempt([&] { name_ = txtFolderName.text(); });
}

}  // namespace vexa
