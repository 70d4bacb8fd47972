#include "kb/row_commands.h"

#include <algorithm>

namespace vexa {

RowCommands::RowCommands(Application& application, const KnowledgebaseList& list, const Buttons& buttons)
    : application_(application), list_(list), buttons_(buttons) {}

std::array<ui::Button*, 6> RowCommands::all() const {
    return {&buttons_.cmdAdd,    &buttons_.cmdEdit,    &buttons_.cmdRename,
            &buttons_.cmdRemove, &buttons_.cmdRebuild, &buttons_.cmdUpdate};
}

void RowCommands::setAll(bool enabled) {
    for (ui::Button* button : all()) button->setEnabled(enabled);
}

ui::Button* RowCommands::focused() const {
    const auto buttons = all();
    const auto found = std::ranges::find_if(buttons, &ui::Button::hasFocus);
    return found == buttons.end() ? nullptr : *found;
}

std::vector<ui::GridCommand> RowCommands::menu() const {
    std::vector<ui::GridCommand> entries;
    for (ui::Button* button : all())
        if (button->enabled()) entries.push_back({button->text(), button->onClick});
    return entries;
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
