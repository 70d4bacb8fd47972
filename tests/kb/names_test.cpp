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
    const std::pair<Answer, Names> groups[] = {
        // Empty and blank.
        {Answer::empty, {L""}},
        {Answer::taken, {L" ", L"   ", L" Mail", L"Mail ", L"\u00A0"}},
        // Equal to the old name, or to it but for case.
        {Answer::unchanged, {L"Mail"}},
        {Answer::taken, {L"MAIL", L"mail", L"mAiL"}},
        // Twins of the others.
        {Answer::exists,
         {L"News", L"news", L"NEWS", L"nEwS", L"Ärzte", L"ärzte", L"ÄRZTE", L"Ελλάδα", L"ελλάδα", L"ΕΛΛΆΔΑ",
          L"Книга", L"книга", L"КНИГА", L"A B", L"new[1]", L"12"}},
        // Near them, but others.
        {Answer::taken,
         {L"Arzte", L"Aerzte", L"Ελλαδα", L"Книги", L"ab", L"a  b", L"New[2]", L"New[1", L"[", L"]", L"News2",
          L"New"}},
        // Letters and signs of all kinds.
        {Answer::taken,
         {L"Zürich", L"Straße", L"ÄÖÜäöü", L"日本語", L"שלום", L"a.b", L".", L"..", L"a;b", L"a'b", L"'",
          L"a&b", L"100%", L"(x) {y}", L"#1 ~ @home", L"a,b", L"a=b+c-d_e", L"default", L"-"}},
        {Answer::forbidden, {L"<None>"}},
        // Long ones.
        {Answer::taken, {std::wstring(255, L'x')}},
        {Answer::forbidden, {std::wstring(254, L'x') + L"?"}},
        {Answer::taken, {std::wstring(100, L'Ä')}},
        // An empty text is refused before anything else; a forbidden sign before a twin.
        {Answer::forbidden, {L"Ne*ws"}},
    };
    std::vector<NameCase> cases;
    for (const auto& [answer, names] : groups)
        for (const std::wstring& name : names) cases.push_back({name, answer});
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
    void openForEachName(FunctionRef<void(frmKBConfiguration&, const NameCase&)> script) {
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
