// The rules for names, as the user meets them: at the end of a rename and of a new row.
#include "tests/kb/kb_test_base.h"

namespace tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using vexa::frmKBConfiguration;

enum class Answer { taken, empty, forbidden, exists, unchanged };

struct NameCase {
    std::wstring name;
    Answer answer;
};

// The list holds "Mail", which is renamed, and these. The code page of the registry has no room for the
// last ones: they come into the list by themselves.
const std::vector<std::wstring> OTHERS{L"News", L"Ärzte", L"a b", L"New[1]", L"12"};
const std::vector<std::wstring> OTHER_SCRIPTS{L"Ελλάδα", L"Книга"};

void PrintTo(const NameCase& name, std::ostream* stream) { *stream << '"' << toUtf8(name.name) << '"'; }

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

class KBNames : public KBTest, public testing::WithParamInterface<NameCase> {
protected:
    void SetUp() override {
        KBTest::SetUp();
        std::vector<std::wstring> all = OTHERS;
        all.push_back(L"Mail");
        recordNames(all);
    }
    void openList(const std::function<void(frmKBConfiguration&)>& script) {
        open([&](frmKBConfiguration& form) {
            for (const std::wstring& name : OTHER_SCRIPTS) form.sftKBConfiguration.addRow({{{name}}});
            script(form);
        });
    }
    bool refused() const {
        return GetParam().answer != Answer::taken && GetParam().answer != Answer::unchanged;
    }
};

TEST_P(KBNames, OfARenameAreTakenOrRefused) {
    const NameCase& name = GetParam();
    openList([&](frmKBConfiguration& form) {
        choose(form, L"Mail");
        user.click(form.cmdRename);
        enter(form, name.name);
        if (refused()) {
            EXPECT_THAT(stage->messages(), ElementsAre(refusal(name)));
            EXPECT_EQ(current(form), L"Mail") << "the old name is back";
            EXPECT_NE(form.sftKBConfiguration.editedRow(), -1) << "and is edited again";
            user.press(form.window(), key::escape);
        } else {
            EXPECT_THAT(stage->messages(), IsEmpty());
            EXPECT_EQ(current(form), name.name);
        }
        EXPECT_EQ(form.sftKBConfiguration.editedRow(), -1);
    });
    EXPECT_EQ(sent().size(), name.answer == Answer::taken ? 1u : 0u);
}

TEST_P(KBNames, OfANewRowAreTakenOrRefused) {
    const NameCase& name = GetParam();
    // The old row is another one now: its own name and its twins exist.
    const bool twinOfMail =
        name.name == L"Mail" || name.name == L"MAIL" || name.name == L"mail" || name.name == L"mAiL";
    const NameCase expected{name.name, twinOfMail ? Answer::exists : name.answer};
    openList([&](frmKBConfiguration& form) {
        user.click(form.cmdAdd);
        const std::wstring proposed = current(form);
        enter(form, name.name);
        if (expected.answer != Answer::taken) {
            EXPECT_THAT(stage->messages(), ElementsAre(refusal(expected)));
            EXPECT_EQ(current(form), proposed);
            user.press(form.window(), key::escape);
            EXPECT_EQ(rowOf(form, proposed), -1) << "no invalid name stays";
        } else {
            EXPECT_THAT(stage->messages(), IsEmpty());
            EXPECT_EQ(current(form), name.name);
        }
    });
}

INSTANTIATE_TEST_SUITE_P(Table, KBNames, testing::ValuesIn(nameCases()));

class KBNameRules : public KBTest {};

TEST_F(KBNameRules, TheTableHoldsAtLeastSixtyNames) { EXPECT_GE(nameCases().size(), 60u); }

TEST_F(KBNameRules, AfterARefusalAnotherNameCanBeEnteredAtOnce) {
    recordNames({L"Mail", L"News"});
    open([&](frmKBConfiguration& form) {
        choose(form, L"Mail");
        user.click(form.cmdRename);
        enter(form, L"");
        enter(form, L"a*b");
        enter(form, L"news");
        enter(form, L"Post");
        EXPECT_EQ(stage->messages().size(), 3u);
        EXPECT_EQ(names(form), (std::vector<std::wstring>{L"News", L"Post"}));
    });
    EXPECT_THAT(sent(), ElementsAre("addin NotifyKbRenamed(Mail, Post)"));
}

TEST_F(KBNameRules, ACommandGivenWithAnInvalidNameOnlyShowsTheMessage) {
    recordNames({L"Mail", L"News"});
    open([&](frmKBConfiguration& form) {
        choose(form, L"Mail");
        user.click(form.cmdRename);
        user.rewrite(form.sftKBConfiguration, L"a*b");
        user.click(form.cmdUpdate);
        EXPECT_EQ(stage->messages().size(), 1u);
        EXPECT_FALSE(form.locked());
        user.press(form.window(), key::escape);
        EXPECT_EQ(names(form), (std::vector<std::wstring>{L"Mail", L"News"}));
    });
    EXPECT_THAT(sent(), IsEmpty());
}

}  // namespace
}  // namespace tests
