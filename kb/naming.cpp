#include "kb/naming.h"

#include <set>
#include <utility>

#include "common/guarded.h"
#include "kb/form_name.h"
#include "kb/messages.h"
#include "kb/name_rules.h"

namespace vexa {

Naming::Naming(Application& application, ui::Window& window, ui::Grid& grid, KnowledgebaseList& list)
    : application_(application), window_(window), grid_(grid), list_(list) {}

void Naming::trace(const std::wstring& text) { application_.WriteLogLine(FORM_NAME + text); }

// --- Beginning --------------------------------------------------------------------------------------------

void Naming::beginAdding() {
    const std::wstring name = list_.rowCount() == 0 ? DEFAULT_KNOWLEDGEBASE : GetNewKBName();
    begin(Adding{name, list_.currentName().value_or(L"")}, [&] { return list_.add(name); });
}

void Naming::beginRenaming(int row) {
    begin(Renaming{list_.nameOf(row), {}}, [row] { return row; });
}

template <class Row>
void Naming::begin(State state, Row row) {
    state_ = std::move(state);
    try {
        grid_.openEditor(row());
    } catch (...) {
        undo();
        throw;
    }
}

std::wstring Naming::GetNewKBName() {
    int number = list_.rowCount();
    std::wstring candidate;
    guarded(application_, FORM_NAME, L"GetNewKBName", [&] {
        trace(L", GetNewKBName: " + std::to_wstring(number));
        Conversions& conversions = application_.platform.conversions;
        std::set<std::wstring> taken;
        for (int row = 0; row < list_.rowCount(); ++row) taken.insert(conversions.lower(list_.nameOf(row)));
        do {
            candidate = L"New[" + std::to_wstring(number++) + L"]";
        } while (taken.contains(conversions.lower(candidate)));
    });
    return candidate;
}

// --- Ending -----------------------------------------------------------------------------------------------

bool Naming::finishEdit() noexcept {
    attempt([&] { grid_.finishEdit(); });
    return grid_.editedRow() == -1;
}

std::wstring Naming::oldName() const {
    if (const auto* renaming = std::get_if<Renaming>(&state_)) return renaming->oldName;
    return std::get<Adding>(state_).name;
}

Naming::State Naming::end(const ui::GridEdit& edit) {
    trace(L", PostEdit Index: " + std::to_wstring(edit.row));
    const bool unchanged = std::holds_alternative<Renaming>(state_) && edit.text == oldName();
    if (unchanged) {
        forget();
        return Idle{};
    }
    if (const auto why = refusal(edit.row, edit.text)) {
        refuse(edit.row, *why);
        return Idle{};
    }
    return accept(edit.row, edit.text);
}

std::optional<ui::Message> Naming::refusal(int row, const std::wstring& name) {
    if (name.empty()) return message::nameMissing();
    if (holdsForbiddenCharacter(name)) return message::nameForbidden();
    if (KBNameExists(name, row)) return message::nameExists(name);
    return std::nullopt;
}

bool Naming::KBNameExists(const std::wstring& name, int exceptRow) {
    bool exists = false;
    guarded(application_, FORM_NAME, L"KBNameExists",
            [&] { exists = list_.findIgnoringCase(name, exceptRow) != -1; });
    return exists;
}

void Naming::refuse(int row, const ui::Message& why) {
    grid_.setCell(row, NAME_COLUMN, nameCell(oldName(), application_.platform.conversions));
    application_.screen.showMessage(&window_, why);
    // Where the list has been read anew meanwhile, or the dialog closed, nothing is being named any more.
    if (isActive()) grid_.openEditor(row);
}

Naming::State Naming::accept(int row, const std::wstring& name) {
    auto* const renaming = std::get_if<Renaming>(&state_);
    if (renaming != nullptr) application_.SetPointerHourglass();
    const int placed = list_.rename(row, name);
    (renaming != nullptr ? renaming->name : std::get<Adding>(state_).name) = name;
    trace(std::wstring(L", Postedit (") + (renaming != nullptr ? L"Rename" : L"NewProject") +
          L") Index after sorting: " + std::to_wstring(placed));
    grid_.setCurrentRow(placed);
    return std::exchange(state_, Idle{});
}

void Naming::undo() {
    const State undone = std::exchange(state_, Idle{});
    const auto* adding = std::get_if<Adding>(&undone);
    const int row = adding == nullptr ? -1 : list_.find(adding->name);
    if (row == -1) return;
    list_.remove(row);
    grid_.setCurrentRow(list_.find(adding->nameBefore));
    list_.keepOneCurrent();
}

}  // namespace vexa
