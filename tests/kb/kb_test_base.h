// The knowledgebase dialog on the stage, opened from the page.
#pragma once

#include "kb/frmKBConfiguration.h"
#include "tests/page/page_test_base.h"

namespace tests {

/// A knowledgebase as the add-in records it; a value that is not given is not stored.
struct Record {
    std::wstring name;
    std::optional<std::wstring> lastUpdate;
    std::optional<std::int32_t> size;
    std::optional<std::int32_t> documents;
};

/// What a row shows.
using Row = std::vector<std::wstring>;

class KBTest : public PageTest {
protected:
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
    void recordNames(const std::vector<std::wstring>& names) {
        std::vector<Record> records;
        for (const std::wstring& name : names) records.push_back({name, {}, {}, 7});
        record(records);
    }

    /// Opens the dialog from the page and plays `script`; a dialog that it leaves open is closed.
    void open(FunctionRef<void(vexa::frmKBConfiguration&)> script) {
        stage->whenShown<vexa::frmKBConfiguration>([&](vexa::frmKBConfiguration& form) {
            script(form);
            if (form.window().isOpen()) user.closeWindow(form.window());
        });
        user.click(page->cmdKnowledgeBase);
    }

    static std::vector<std::wstring> names(const vexa::frmKBConfiguration& form) {
        std::vector<std::wstring> shown;
        for (int row = 0; row < form.sftKBConfiguration.rowCount(); ++row)
            shown.push_back(form.sftKBConfiguration.cellText(row, 0));
        return shown;
    }
    static Row cells(const vexa::frmKBConfiguration& form, int row) {
        Row shown;
        for (int column = 0; column < 4; ++column)
            shown.push_back(form.sftKBConfiguration.cellText(row, column));
        return shown;
    }
    static std::wstring current(const vexa::frmKBConfiguration& form) {
        const int row = form.sftKBConfiguration.currentRow();
        return row == -1 ? L"(none)" : form.sftKBConfiguration.cellText(row, 0);
    }
    static int rowOf(const vexa::frmKBConfiguration& form, const std::wstring& name) {
        const auto all = names(form);
        const auto found = std::find(all.begin(), all.end(), name);
        return found == all.end() ? -1 : static_cast<int>(found - all.begin());
    }
    void choose(vexa::frmKBConfiguration& form, const std::wstring& name) {
        user.clickRow(form.sftKBConfiguration, rowOf(form, name));
    }

    /// The enabled row commands: Add, Edit, reName, reMove, reBuild, Update.
    static std::string buttons(const vexa::frmKBConfiguration& form) {
        std::string letters;
        if (form.cmdAdd.enabled()) letters += 'A';
        if (form.cmdEdit.enabled()) letters += 'E';
        if (form.cmdRename.enabled()) letters += 'N';
        if (form.cmdRemove.enabled()) letters += 'M';
        if (form.cmdRebuild.enabled()) letters += 'B';
        if (form.cmdUpdate.enabled()) letters += 'U';
        return letters;
    }
    static bool anyRowGreyed(const vexa::frmKBConfiguration& form) {
        for (int row = 0; row < form.sftKBConfiguration.rowCount(); ++row)
            if (!form.sftKBConfiguration.row(row).enabled) return true;
        return false;
    }

    /// Types a name into the open editor and accepts it.
    void enter(vexa::frmKBConfiguration& form, const std::wstring& name) {
        user.rewrite(form.sftKBConfiguration, name);
        user.press(form.window(), key::enter);
    }
    void rename(vexa::frmKBConfiguration& form, const std::wstring& from, const std::wstring& to) {
        choose(form, from);
        user.click(form.cmdRename);
        enter(form, to);
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

}  // namespace tests
