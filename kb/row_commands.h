// The six commands on the list's knowledgebases: which of their buttons is enabled when.
#pragma once

#include <array>
#include <vector>

#include "kb/knowledgebase_list.h"
#include "ui/controls.h"

namespace vexa {

class RowCommands {
public:
    struct Buttons {
        ui::Button& cmdAdd;
        ui::Button& cmdEdit;
        ui::Button& cmdRename;
        ui::Button& cmdRemove;
        ui::Button& cmdRebuild;
        ui::Button& cmdUpdate;
    };
    RowCommands(Application& application, const KnowledgebaseList& list, const Buttons& buttons);

    void setAll(bool enabled);
    /// The button that has the focus; null where none has it.
    [[nodiscard]] ui::Button* focused() const;
    /// Those that are enabled, as a list's menu offers them.
    [[nodiscard]] std::vector<ui::GridCommand> menu() const;
    /// Rebuild and Update need a current knowledgebase with documents.
    void applyDocumentsRule();
    /// What the list allows: with no row Add alone, else Edit and what the documents rule says. Enables
    /// nothing else.
    void followList();
    /// All commands as the list allows them, after something that had disabled them.
    void restore();

private:
    [[nodiscard]] std::array<ui::Button*, 6> all() const;

    Application& application_;
    const KnowledgebaseList& list_;
    Buttons buttons_;
};

}  // namespace vexa
