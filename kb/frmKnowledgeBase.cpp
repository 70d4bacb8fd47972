#include "kb/frmKnowledgeBase.h"

#include "common/guarded.h"
#include "kb/frmNewFolder.h"
#include "kb/messages.h"

namespace vexa {
namespace {

/// "C:" of a path on a drive.
std::wstring driveOf(const std::wstring& path) { return path.substr(0, 2); }

}  // namespace

frmKnowledgeBase::frmKnowledgeBase(Application& application, ui::Window& owner)
    : OkCancelForm(application.screen.createDialog(IDD_frmKnowledgeBase, &owner)),
      application_(application),
      folders_(dirVexaBaseDir, application.platform.files) {
    drvVexaBaseDir.onClick = [this] { attempt([&] { drvVexaBaseDir_Change(); }); };
    cmdNewDirectory.onClick = [this] { attempt([&] { cmdNewDirectory_Click(); }); };
    folders_.onFailure = [this] { report(message::folderNotOpened(currentErrorDescription())); };
    folders_.onChange = [this] { txtPath.setText(folders_.path()); };
}

void frmKnowledgeBase::Form_Load() {
    const std::wstring& baseFolder = application_.settings.VexaBaseDir;
    attempt([&] { listDrives(); });
    attempt([&] { selectDrive(driveOf(baseFolder)); });
    attempt([&] {
        folders_.showPath(baseFolder);  // kept as it is where it cannot be read
        if (!baseFolder.empty()) folders_.setPath(baseFolder);
    });
}

void frmKnowledgeBase::listDrives() {
    for (const std::wstring& drive : application_.platform.files.drives()) drvVexaBaseDir.add(drive);
}

void frmKnowledgeBase::selectDrive(const std::wstring& drive) {
    Conversions& conversions = application_.platform.conversions;
    const std::wstring wanted = conversions.lower(drive);
    int found = -1;
    for (int index = 0; index < drvVexaBaseDir.count() && found == -1; ++index)
        if (conversions.lower(drvVexaBaseDir.item(index)) == wanted) found = index;
    drvVexaBaseDir.select(found);
}

void frmKnowledgeBase::drvVexaBaseDir_Change() {
    const std::wstring drive = drvVexaBaseDir.item(drvVexaBaseDir.selectedIndex());
    Conversions& conversions = application_.platform.conversions;
    // The drive that is shown, chosen again, is no change.
    if (conversions.lower(drive) == conversions.lower(driveOf(folders_.path()))) return;
    try {
        folders_.setPath(drive + L"\\");
    } catch (const Error&) {
        application_.screen.showMessage(&window(), message::driveNotAvailable(drive));
        selectDrive(driveOf(folders_.path()));
    }
}

void frmKnowledgeBase::cmdNewDirectory_Click() {
    if (folders_.path().empty()) return;
    frmNewFolder question(application_, window());
    question.Show();
    if (question.name() && window().isOpen()) createFolder(*question.name());
}

void frmKnowledgeBase::createFolder(const std::wstring& name) {
    const std::wstring path = subfolderPath(folders_.path(), name);
    try {
        application_.platform.files.createFolder(path);
        folders_.setPath(path);
    } catch (const Error&) {
        report(message::folderNotCreated(name, currentErrorDescription()));
    }
}

void frmKnowledgeBase::report(const ui::Message& failure) {
    attempt([&] { application_.screen.showMessage(&window(), failure); });
}

void frmKnowledgeBase::cmdOK_Click() {
    attempt([&] {
        Settings& settings = application_.settings;
        if (folders_.path() != settings.VexaBaseDir) application_.bBaseDirChanged = true;
        settings.VexaBaseDir = folders_.path();
    });
}

}  // namespace vexa
