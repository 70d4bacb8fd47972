// Naming a knowledgebase in the list: what is being named, and which names are taken.
#pragma once

#include <optional>
#include <string>
#include <variant>

#include "common/application.h"
#include "kb/knowledgebase_list.h"
#include "ui/grid.h"
#include "ui/window.h"

namespace vexa {

class Naming {
public:
    struct Idle {};
    /// A row is in the list that the add-in has not been told of.
    struct Adding {
        std::wstring name;        ///< the row's
        std::wstring nameBefore;  ///< of the knowledgebase that was current before; empty is none
    };
    struct Renaming {
        std::wstring oldName;
        std::wstring name;  ///< the accepted one
    };
    using State = std::variant<Idle, Adding, Renaming>;

    Naming(Application& application, ui::Window& window, ui::Grid& grid, KnowledgebaseList& list);

    [[nodiscard]] bool isActive() const { return !std::holds_alternative<Idle>(state_); }

    /// Adds a row and opens the editor on it. Where that fails the row goes again, and the error comes
    /// through.
    void beginAdding();
    /// Opens the editor on the row. Throws what that throws.
    void beginRenaming(int row);
    /// Accepts the text of an open editor, which raises the grid's `onEndEdit`; false where it was refused
    /// and is being edited again.
    [[nodiscard]] bool finishEdit() noexcept;
    /// PostEdit: what was named, with the name that was accepted; Idle where nothing follows, because the
    /// name is unchanged or was refused. While a refusal is shown the list may be read anew or the dialog
    /// close.
    [[nodiscard]] State end(const ui::GridEdit& edit);
    /// The list is about to be read anew: what is being named in it is forgotten.
    void forget() { state_ = Idle{}; }
    /// Ends the naming; a row that the add-in has not been told of goes.
    void undo();

private:
    /// `row` gives the row to edit.
    template <class Row>
    void begin(State state, Row row);
    [[nodiscard]] std::wstring GetNewKBName();
    [[nodiscard]] std::wstring oldName() const;
    [[nodiscard]] std::optional<ui::Message> refusal(int row, const std::wstring& name);
    void refuse(int row, const ui::Message& why);
    [[nodiscard]] State accept(int row, const std::wstring& name);
    [[nodiscard]] bool KBNameExists(const std::wstring& name, int exceptRow);
    void trace(const std::wstring& text);

    Application& application_;
    ui::Window& window_;
    ui::Grid& grid_;
    KnowledgebaseList& list_;
    State state_;
};

}  // namespace vexa
