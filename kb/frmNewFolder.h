// "New folder": asks for a folder's name.
#pragma once

#include <optional>
#include <string>

#include "common/application.h"
#include "kb/frmNewFolder.ids.h"
#include "ui/form.h"

namespace vexa {

class frmNewFolder : public ui::OkCancelForm {
public:
    frmNewFolder(Application& application, ui::Window& owner);

    ui::TextBox& txtFolderName = control<ui::TextBox>(IDC_txtFolderName);

    /// What was entered; nothing where the dialog was cancelled.
    [[nodiscard]] const std::optional<std::wstring>& name() const { return name_; }

protected:
    void Form_Load() override;
    void cmdOK_Click() override;

private:
    void txtFolderName_Change();

    std::optional<std::wstring> name_;
};

}  // namespace vexa
