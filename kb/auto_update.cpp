#include "kb/auto_update.h"

#include <utility>

#include "kb/form_name.h"
#include "kb/frmSelectDefaultKB.h"
#include "kb/messages.h"

namespace vexa {

AutoUpdate::AutoUpdate(Application& application, ui::Window& window, const KnowledgebaseList& list,
                       std::function<void()> onChange)
    : application_(application), window_(window), list_(list), onChange_(std::move(onChange)) {}

bool AutoUpdate::isFor(const std::wstring& name) const {
    return !name.empty() && name == application_.settings.DefaultProject;
}

void AutoUpdate::offer(const std::wstring& name) {
    const std::wstring stored =
        application_.readText(application_.ProfileKey, valueName::DefaultProject, L"");
    const int rows = list_.rowCount();
    application_.WriteLogLine(FORM_NAME + (L", auto-update kb: '" + application_.settings.DefaultProject) +
                              L"'; items: " + std::to_wstring(rows));
    if (rows != 1 || !stored.empty() || !window_.isOpen()) return;
    const auto answer = application_.screen.showMessage(&window_, message::configureAutoUpdate(name));
    if (answer != ui::MessageAnswer::yes) return;
    application_.settings.DefaultProject = name;
    changed();
}

void AutoUpdate::chooseNext(int rows) {
    application_.settings.DefaultProject.clear();
    if (rows > 1 && window_.isOpen()) frmSelectDefaultKB(application_, window_).Show();
    changed();
}

void AutoUpdate::rename(const std::wstring& oldName, const std::wstring& name) {
    if (!isFor(oldName)) return;
    application_.writeText(application_.ProfileKey, valueName::DefaultProject, name);
    application_.settings.DefaultProject = name;
}

void AutoUpdate::changed() {
    application_.settings.ProjectCount = list_.rowCount();
    application_.flags.defaultKnowledgebaseChanged = true;
    onChange_();
}

}  // namespace vexa
