// The rules for names, as the user meets them: at the end of a rename and of a new row.
#include "tests/kb/kb_test_base.h"

namespace tests {
namespace {

enum class Answer { taken, empty, forbidden, exists, unchanged };

struct NameCase {
    std::wstring name;
    Answer answer;
};

// The list holds "Mail", which is renamed, and these. The code page of the registry has no room for the
// last ones: they come into the list by themselves.
const Names OTHERS{L"News", L"Ärzte", L"a b", L"New[1]", L"12"};
const Names OTHER_SCRIPTS{L"Ελλάδα", L"Книга"};

std::vector<NameCase> nameCases() {
    std::vector<NameCase> cases{
        // Empty and blank.
        {L"", Answer::empty},
        {L" ", Answer::taken},
        {L"   ", Answer::taken},
        {L" Mail", Answer::taken},
        {L"Mail ", Answer::taken},
        {L"\u00A0", Answer::taken},
        // Equal to the old name, or to it but for case.
        {L"Mail", Answer::unchanged},
        {L"MAIL", Answer::taken},
        {L"mail", Answer::taken},
        {L"mAiL", Answer::taken},
        // Twins of the others.
        {L"News", Answer::exists},
        {L"news", Answer::exists},
        {L"NEWS", Answer::exists},
        {L"nEwS", Answer::exists},
        {L"Ärzte", Answer::exists},
        {L"ärzte", Answer::exists},
        {L"ÄRZTE", Answer::exists},
        {L"Ελλάδα", Answer::exists},
        {L"ελλάδα", Answer::exists},
        {L"ΕΛΛΆΔΑ", Answer::exists},
        {L"Книга", Answer::exists},
        {L"книга", Answer::exists},
        {L"КНИГА", Answer::exists},
        {L"A B", Answer::exists},
        {L"new[1]", Answer::exists},
        {L"12", Answer::exists},
        // Near them, but others.
        {L"Arzte", Answer::taken},
        {L"Aerzte", Answer::taken},
        {L"Ελλαδα", Answer::taken},
        {L"Книги", Answer::taken},
        {L"ab", Answer::taken},
        {L"a  b", Answer::taken},
        {L"New[2]", Answer::taken},
        {L"New[1", Answer::taken},
        {L"[", Answer::taken},
        {L"]", Answer::taken},
        {L"News2", Answer::taken},
        {L"New", Answer::taken},
        // Letters and signs of all kinds.
        {L"Zürich", Answer::taken},
        {L"Straße", Answer::taken},
        {L"ÄÖÜäöü", Answer::taken},
        {L"日本語", Answer::taken},
        {L"שלום", Answer::taken},
        {L"a.b", Answer::taken},
        {L".", Answer::taken},
        {L"..", Answer::taken},
        {L"a;b", Answer::taken},
        {L"a'b", Answer::taken},
        {L"'", Answer::taken},
        {L"a&b", Answer::taken},
        {L"100%", Answer::taken},
        {L"(x) {y}", Answer::taken},
        {L"#1 ~ @home", Answer::taken},
        {L"a,b", Answer::taken},
        {L"a=b+c-d_e", Answer::taken},
        {L"default", Answer::taken},
        {L"-", Answer::taken},
        {L"<None>", Answer::forbidden},
        // Long ones.
        {std::wstring(255, L'x'), Answer::taken},
        {std::wstring(254, L'x') + L"?", Answer::forbidden},
        {std::wstring(100, L'Ä'), Answer::taken},
        // An empty text is refused before anything else; a forbidden sign before a twin.
        {L"Ne*ws", Answer::forbidden},
    };
    for (const wchar_t sign : std::wstring(L"\\/:*?\"<>|")) {
        cases.push_back({std::wstring(1, sign), Answer::forbidden});
        cases.push_back({sign + std::wstring(L"name"), Answer::forbidden});
        cases.push_back({L"na" + std::wstring(1, sign) + L"me", Answer::forbidden});
        cases.push_back({L"name" + std::wstring(1, sign), Answer::forbidden});
    }
    return cases;
}

ui::Message refusal(const NameCase& name) {
    const std::wstring forbidden = L"The name may not contain the following characters:\r\n" +
                                   std::wstring(17, L' ') + L"\\ / : * ? \" < > |";
    const std::wstring text = name.answer == Answer::empty ? L"Please enter a name."
                              : name.answer == Answer::forbidden
                                  ? forbidden
                                  : L"The knowledgebase '" + name.name + L"' already exists.";
    return {text, L"Quillmark", ui::MessageIcon::exclamation, ui::MessageButtons::ok};
}

class KBNames : public KBTest {
public:
    /// Opens the list and plays `script` with each name; before each the list is read anew.
    void openForEachName(const std::function<void(frmKBConfiguration&, const NameCase&)>& script) {
        Names all = OTHERS;
        all.push_back(L"Mail");
        openWith(all, [&](frmKBConfiguration& form) {
            for (const NameCase& name : nameCases()) {
                SCOPED_TRACE('"' + toUtf8(name.name) + '"');
                addIn.finish(L"Mail", false);
                for (const std::wstring& other : OTHER_SCRIPTS) form.sftKBConfiguration.addRow({{{other}}});
                calls.clear();
                said_ = stage->messages();
                script(form, name);
            }
        });
    }
    /// The name is entered; where it is refused, that is said, and `kept` is edited again until Esc.
    void expectAnswer(frmKBConfiguration& form, const NameCase& name, const std::wstring& kept) {
        const bool refused = name.answer != Answer::taken && name.answer != Answer::unchanged;
        enter(form, name.name);
        if (refused) said_.push_back(refusal(name));
        EXPECT_EQ(stage->messages(), said_);
        EXPECT_EQ(current(form), refused ? kept : name.name);
        EXPECT_EQ(form.sftKBConfiguration.editedRow() != -1, refused);
        if (refused) user.press(form.window(), key::escape);
    }

private:
    std::vector<ui::Message> said_;
};

TEST_F(KBNames, OfARenameAreTakenOrRefused) {
    openForEachName([&](frmKBConfiguration& form, const NameCase& name) {
        choose(form, L"Mail");
        user.click(form.cmdRename);
        expectAnswer(form, name, L"Mail");
        EXPECT_EQ(form.sftKBConfiguration.editedRow(), -1);
        const std::string told = "addin NotifyKbRenamed(Mail, " + toUtf8(name.name) + ")";
        EXPECT_EQ(sent(), std::vector<std::string>(name.answer == Answer::taken ? 1 : 0, told));
    });
}

TEST_F(KBNames, OfANewRowAreTakenOrRefused) {
    openForEachName([&](frmKBConfiguration& form, const NameCase& name) {
        // The old row is another one now: its own name and its twins exist.
        const bool twinOfMail = application.platform.conversions.lower(name.name) == L"mail";
        user.click(form.cmdAdd);
        const std::wstring proposed = current(form);
        expectAnswer(form, {name.name, twinOfMail ? Answer::exists : name.answer}, proposed);
        EXPECT_EQ(rowOf(form, proposed), -1) << "no invalid name stays";
    });
}

TEST_F(KBNames, TheTableHoldsAtLeastSixty) { EXPECT_GE(nameCases().size(), 60u); }

TEST_F(KBNames, AfterARefusalAreEnteredAtOnce) {
    openWith({L"Mail", L"News"}, [&](frmKBConfiguration& form) {
        choose(form, L"Mail");
        user.click(form.cmdRename);
        for (const wchar_t* name : {L"", L"a*b", L"news", L"Post"}) enter(form, name);
        EXPECT_EQ(stage->messages().size(), 3u);
        EXPECT_EQ(names(form), (Names{L"News", L"Post"}));
    });
    EXPECT_THAT(sent(), ElementsAre("addin NotifyKbRenamed(Mail, Post)"));
}

}  // namespace
}  // namespace tests
