#include "kb/row_commands.h"

namespace vexa {

RowCommands::RowCommands(Application& application, const KnowledgebaseList& list, const Buttons& buttons)
    : application_(application), list_(list), buttons_(buttons) {}

void RowCommands::setAll(bool enabled) {
    for (ui::Button* button : {&buttons_.cmdAdd, &buttons_.cmdEdit, &buttons_.cmdRename, &buttons_.cmdRemove,
                               &buttons_.cmdRebuild, &buttons_.cmdUpdate})
        button->setEnabled(enabled);
}

void RowCommands::applyDocumentsRule() {
    const auto name = list_.currentName();
    const bool hasDocuments = name && documentCount(application_, *name) != 0;
    buttons_.cmdRebuild.setEnabled(hasDocuments);
    buttons_.cmdUpdate.setEnabled(hasDocuments);
}

void RowCommands::followList() {
    const bool anyRow = list_.rowCount() > 0;
    buttons_.cmdEdit.setEnabled(anyRow);
    if (!anyRow) {
        buttons_.cmdRename.setEnabled(false);
        buttons_.cmdRemove.setEnabled(false);
    }
    applyDocumentsRule();
}

void RowCommands::restore() {
    setAll(true);
    followList();
}

}  // namespace vexa
