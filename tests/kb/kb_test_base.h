// The knowledgebase dialog on the stage, opened from the page.
#pragma once

#include <span>

#include "kb/frmKBConfiguration.h"
#include "tests/page/page_test_base.h"

namespace tests {

using ui::MessageAnswer;
using vexa::frmKBConfiguration;
using Names = std::vector<std::wstring>;

/// The headers of the list, as its columns declare them.
inline Names declaredHeaders() {
    Names headers;
    for (const vexa::ListColumn& column : vexa::listColumns()) headers.push_back(column.header.caption);
    return headers;
}

/// A knowledgebase as the add-in records it; a value that is not given is not stored.
struct Record {
    std::wstring name;
    std::optional<std::wstring> lastUpdate;
    std::optional<std::int32_t> size;
    std::optional<std::int32_t> documents;
};

/// What a row shows.
using Row = std::vector<std::wstring>;

/// A command of the buttons.
struct Command {
    const char* name;
    ui::Button& (*button)(frmKBConfiguration&);
    const char* call;  ///< what carries it to the add-in
    // Of those for which the dialog is locked:
    int event = -1;             ///< the code of its event
    std::size_t eventRuns = 0;  ///< how often events run before the add-in hears of it
    const wchar_t* said = L"";  ///< while it runs, about "Mail"
};
inline const Command COMMANDS[] = {
    {"Edit", [](frmKBConfiguration& form) -> ui::Button& { return form.cmdEdit; }, "message 4711 1139 0 0", 2,
     1, L"The add-in is editing 'Mail'..."},
    {"Remove", [](frmKBConfiguration& form) -> ui::Button& { return form.cmdRemove; },
     "addin NotifyKbRemoved(Mail)", 1, 2, L"The add-in is removing 'Mail'..."},
    {"Rebuild", [](frmKBConfiguration& form) -> ui::Button& { return form.cmdRebuild; },
     "addin NotifyKbRebuild(Mail)", 4, 2, L"The add-in is rebuilding 'Mail'..."},
    {"Update", [](frmKBConfiguration& form) -> ui::Button& { return form.cmdUpdate; },
     "addin NotifyKbUpdate(Mail)", 5, 1, L"The add-in is updating 'Mail'..."},
    {"Rename", [](frmKBConfiguration& form) -> ui::Button& { return form.cmdRename; },
     "addin NotifyKbRenamed"},
    {"Add", [](frmKBConfiguration& form) -> ui::Button& { return form.cmdAdd; }, "addin NotifyKbAdded"},
};
inline const std::span<const Command> LOCKING_COMMANDS = std::span(COMMANDS).first(4);

class KBTest : public PageTest {
public:
    /// A profile of its own: the names of knowledgebases are keys below it.
    static constexpr const wchar_t* KEY = L"Software\\Norvane\\Quillmark\\Alice";

    void SetUp() override {
        stage->setValue(ROOT, L"CurrentProfile", L"Alice");
        stage->setValue(KEY, L"LogPath", stage->folder());
        stage->setValue(KEY, L"LoggingInformation", 1);
        start();
        calls.clear();
    }

    /// The add-in's records, in place of those that are there.
    void record(const std::vector<Record>& records) {
        stage->setValue(KEY, L"ProjectCount", static_cast<std::int32_t>(records.size()));
        int index = 0;
        for (const Record& one : records) {
            stage->setValue(KEY, L"Project" + std::to_wstring(++index), one.name);
            const std::wstring key = std::wstring(KEY) + L"\\" + one.name;
            if (one.lastUpdate) stage->setValue(key, L"KBLastUpdate", *one.lastUpdate);
            if (one.size) stage->setValue(key, L"KBSize", *one.size);
            if (one.documents) stage->setValue(key, L"KBDocuments", *one.documents);
        }
    }
    /// Knowledgebases with documents, of which nothing else is known.
    void recordNames(const Names& names) {
        std::vector<Record> records;
        for (const std::wstring& name : names) records.push_back({name, {}, {}, 7});
        record(records);
    }

    /// Opens the dialog from the page and plays `script`; a dialog that it leaves open is closed.
    void open(FunctionRef<void(frmKBConfiguration&)> script) {
        stage->whenShown<frmKBConfiguration>([&](frmKBConfiguration& form) {
            script(form);
            if (form.window().isOpen()) user.closeWindow(form.window());
        });
        user.click(page->cmdKnowledgeBase);
    }

    void openWith(const Names& names, FunctionRef<void(frmKBConfiguration&)> script) {
        recordNames(names);
        open(script);
    }
    /// Opens the dialog and plays `script` with each of the commands, for which "Mail" is current and a
    /// question is answered by Yes. The script leaves the dialog as it was.
    void openForEach(std::span<const Command> commands,
                     FunctionRef<void(frmKBConfiguration&, const Command&)> script) {
        open([&](frmKBConfiguration& form) {
            for (const Command& command : commands) {
                SCOPED_TRACE(command.name);
                choose(form, L"Mail");
                stage->answerMessages({MessageAnswer::yes});
                calls.clear();
                script(form, command);
                calls.forgetFaults();
            }
        });
    }

    static Names names(const frmKBConfiguration& form) {
        Names shown;
        for (int row = 0; row < form.sftKBConfiguration.rowCount(); ++row)
            shown.push_back(form.sftKBConfiguration.cellText(row, 0));
        return shown;
    }
    static Row cells(const frmKBConfiguration& form, int row) {
        Row shown;
        for (int column = 0; column < 4; ++column)
            shown.push_back(form.sftKBConfiguration.cellText(row, column));
        return shown;
    }
    static std::wstring current(const frmKBConfiguration& form) {
        const int row = form.sftKBConfiguration.currentRow();
        return row == -1 ? L"(none)" : form.sftKBConfiguration.cellText(row, 0);
    }
    static int rowOf(const frmKBConfiguration& form, const std::wstring& name) {
        const auto all = names(form);
        const auto found = std::find(all.begin(), all.end(), name);
        return found == all.end() ? -1 : static_cast<int>(found - all.begin());
    }
    void choose(frmKBConfiguration& form, const std::wstring& name) {
        user.clickRow(form.sftKBConfiguration, rowOf(form, name));
    }

    /// The enabled row commands: Add, Edit, reName, reMove, reBuild, Update.
    static std::string buttons(const frmKBConfiguration& form) {
        std::string letters;
        if (form.cmdAdd.enabled()) letters += 'A';
        if (form.cmdEdit.enabled()) letters += 'E';
        if (form.cmdRename.enabled()) letters += 'N';
        if (form.cmdRemove.enabled()) letters += 'M';
        if (form.cmdRebuild.enabled()) letters += 'B';
        if (form.cmdUpdate.enabled()) letters += 'U';
        return letters;
    }
    static bool anyRowGreyed(const frmKBConfiguration& form) {
        for (int row = 0; row < form.sftKBConfiguration.rowCount(); ++row)
            if (!form.sftKBConfiguration.row(row).enabled) return true;
        return false;
    }

    /// Types a name into the open editor and accepts it.
    void enter(frmKBConfiguration& form, const std::wstring& name) {
        user.rewrite(form.sftKBConfiguration, name);
        user.press(form.window(), key::enter);
    }
    void rename(frmKBConfiguration& form, const std::wstring& from, const std::wstring& to) {
        choose(form, from);
        user.click(form.cmdRename);
        enter(form, to);
    }

    // Commands on "Mail".
    /// A name that the command asks for is "Post".
    void give(frmKBConfiguration& form, const Command& command) {
        user.click(command.button(form));
        if (form.sftKBConfiguration.editedRow() != -1) enter(form, L"Post");
    }
    void lockByUpdate(frmKBConfiguration& form) {
        choose(form, L"Mail");
        user.click(form.cmdUpdate);
        ASSERT_TRUE(form.locked());
        calls.clear();
    }
    void removeMail(frmKBConfiguration& form) {
        choose(form, L"Mail");
        stage->answerMessages({MessageAnswer::yes});
        user.click(form.cmdRemove);
    }
    /// An edit of the row that is chosen is of its knowledgebase.
    void expectEditOf(frmKBConfiguration& form, const std::wstring& name) {
        choose(form, name);
        user.click(form.cmdEdit);
        EXPECT_TRUE(form.locked());
        EXPECT_EQ(storedText(L"ProjectEventName"), name);
        EXPECT_EQ(stored(L"ProjectEvent"), 2);
    }

    // Ends of commands.
    static constexpr int TICK = 500;
    void endByTick() {
        stage->setValue(KEY, L"KBProcessState", 3);
        user.wait(TICK);
    }
    /// Rows and buttons show the lock.
    void expectLocked(const frmKBConfiguration& form, std::int32_t state = 2) {
        EXPECT_TRUE(form.locked());
        EXPECT_EQ(buttons(form), "");
        EXPECT_TRUE(anyRowGreyed(form));
        EXPECT_EQ(stored(L"KBProcessState"), state);
    }
    void expectUnlocked(const frmKBConfiguration& form) {
        EXPECT_FALSE(form.locked());
        EXPECT_FALSE(anyRowGreyed(form));
        EXPECT_EQ(buttons(form).substr(0, 1), "A");
        EXPECT_EQ(stored(L"KBProcessState"), MISSING);
    }
    /// The list is unlocked, holds these and no name is being entered.
    void expectList(const frmKBConfiguration& form, const Names& expected) {
        EXPECT_FALSE(form.locked());
        EXPECT_EQ(names(form), expected);
        EXPECT_EQ(form.sftKBConfiguration.editedRow(), -1);
    }

    /// What reached the add-in and its search window.
    [[nodiscard]] std::vector<std::string> sent() const {
        std::vector<std::string> lines;
        for (const std::string& line : calls.lines())
            if (line.starts_with("addin Notify") || line.starts_with("message ") ||
                line.starts_with("addin SetDefault"))
                lines.push_back(line);
        return lines;
    }

    [[nodiscard]] std::int32_t stored(const std::wstring& name) { return integer(KEY, name); }
    [[nodiscard]] std::wstring storedText(const std::wstring& name) { return text(KEY, name); }

    const std::string ALL = "AENMBU";
    FakeAddIn& addIn = stage->addIn();
};

/// "Mail" and "News", and a search window that listens.
class KBMailAndNews : public KBTest {
public:
    void SetUp() override {
        KBTest::SetUp();
        stage->setValue(ROOT, L"hWndSearchCtl", 4711);
        recordNames({L"Mail", L"News"});
    }
};

}  // namespace tests
