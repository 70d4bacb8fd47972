// The auto-update knowledgebase: the one that the add-in keeps up to date by itself. Its name is
// `DefaultProject` of the settings record; an empty one means none. The page stores it.
#pragma once

#include <functional>
#include <string>

#include "common/application.h"
#include "kb/knowledgebase_list.h"
#include "ui/window.h"

namespace vexa {

class AutoUpdate {
public:
    AutoUpdate(Application& application, ui::Window& window, const KnowledgebaseList& list,
               std::function<void()> onChange);

    [[nodiscard]] bool isFor(const std::wstring& name) const;
    /// Asks the user whether it shall be a new knowledgebase, where that is the only one and none is stored.
    /// The dialog may close meanwhile.
    void offer(const std::wstring& name);
    /// Its knowledgebase is removed: lets the user choose another one of the list's rows, if there is one.
    /// The dialog may close meanwhile.
    void chooseNext(int rows);
    /// A knowledgebase bears another name now. Stores it where it is the auto-update one.
    void rename(const std::wstring& oldName, const std::wstring& name);

private:
    void changed();

    Application& application_;
    ui::Window& window_;
    const KnowledgebaseList& list_;
    std::function<void()> onChange_;
};

}  // namespace vexa
