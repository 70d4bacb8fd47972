// Stored lists of file extensions: what the dialog shows of them, and what OK writes.
#include "settings/extension_list.h"
#include "tests/settings/settings_test_base.h"

namespace tests {
namespace {

/// Lists as texts: each piece ends with a semicolon.
struct StoredLists {
    const char* what;
    std::wstring available;
    std::wstring selected;
    std::wstring shownAvailable;
    std::wstring shownSelected;  ///< which OK writes
};

std::wstring repeated(const std::wstring& text, int count) {
    std::wstring all;
    for (int index = 0; index < count; ++index) all += text;
    return all;
}

/// "<prefix>0;<prefix>1;..."
std::wstring numbered(const std::wstring& prefix, int count) {
    std::wstring all;
    for (int index = 0; index < count; ++index) all += prefix + std::to_wstring(index) + L";";
    return all;
}

std::vector<StoredLists> table() {
    return {
        {"nothing", L"", L"", L"", L""},
        {"one available", L"doc;", L"", L"doc;", L""},
        {"one selected", L"", L"doc;", L"", L"doc;"},
        {"three available", L"doc;pdf;txt;", L"", L"doc;pdf;txt;", L""},
        {"the stored order stays", L"txt;doc;pdf;", L"zip;arj;", L"txt;doc;pdf;", L"zip;arj;"},
        {"selected ones are not available", L"doc;pdf;txt;", L"pdf;", L"doc;txt;", L"pdf;"},
        {"the first selected", L"doc;pdf;txt;", L"doc;", L"pdf;txt;", L"doc;"},
        {"the last selected", L"doc;pdf;txt;", L"txt;", L"doc;pdf;", L"txt;"},
        {"all selected", L"doc;pdf;", L"pdf;doc;", L"", L"pdf;doc;"},
        {"selected ones beyond the available", L"doc;", L"pdf;doc;xyz;", L"", L"pdf;doc;xyz;"},
        {"no final separator, available", L"doc;pdf", L"", L"doc;", L""},
        {"no final separator, selected", L"", L"doc;pdf", L"", L"doc;"},
        {"no final separator, both", L"doc;pdf", L"pdf;doc", L"doc;", L"pdf;"},
        {"no separator at all", L"doc", L"pdf", L"", L""},
        {"a separator alone", L";", L";", L"", L";"},
        {"a separator alone, available", L";", L"", L";", L""},
        {"two separators", L";;", L"", L";;", L""},
        {"an empty piece in front", L";doc;", L"", L";doc;", L""},
        {"an empty piece in the middle", L"doc;;pdf;", L"", L"doc;;pdf;", L""},
        {"an empty piece at the end", L"doc;;", L"", L"doc;;", L""},
        {"empty pieces selected", L"doc;;", L";doc;;", L"", L";doc;;"},
        {"an empty piece takes the empty ones away", L";a;;b;", L";", L"a;b;", L";"},
        {"upper case available", L"DOC;Pdf;", L"", L"doc;pdf;", L""},
        {"upper case selected", L"doc;pdf;", L"PDF;", L"doc;", L"pdf;"},
        {"upper case in both", L"DOC;PDF;TXT;", L"Doc;tXt;", L"pdf;", L"doc;txt;"},
        {"umlauts in upper case", L"\u00c4\u00d6\u00dc;", L"", L"\u00e4\u00f6\u00fc;", L""},
        {"umlauts match in any case", L"\u00e4\u00f6;", L"\u00c4\u00d6;", L"", L"\u00e4\u00f6;"},
        {"available twice", L"doc;doc;", L"", L"doc;doc;", L""},
        {"available twice in two cases", L"doc;DOC;pdf;", L"", L"doc;doc;pdf;", L""},
        {"available twice and selected", L"doc;pdf;doc;", L"doc;", L"pdf;", L"doc;"},
        {"selected twice", L"doc;", L"pdf;pdf;", L"doc;", L"pdf;pdf;"},
        {"blanks around", L" doc;pdf ; ;", L"", L" doc;pdf ; ;", L""},
        {"blanks make a difference", L"doc; doc;", L"doc;", L" doc;", L"doc;"},
        {"blanks selected", L"", L" doc ; pdf;", L"", L" doc ; pdf;"},
        {"leading dots", L".doc;.PDF;", L".pdf;", L".doc;", L".pdf;"},
        {"a dot makes a difference", L"doc;.doc;", L"doc;", L".doc;", L"doc;"},
        {"double extensions", L"tar.gz;gz;", L"gz;", L"tar.gz;", L"gz;"},
        {"commas are no separators", L"doc,pdf;", L"", L"doc,pdf;", L""},
        {"other signs", L"*.*;?;a&b;c\\d;\"e\";", L"", L"*.*;?;a&b;c\\d;\"e\";", L""},
        {"digits", L"7z;001;", L"7Z;", L"001;", L"7z;"},
        {"tabs and line ends", L"a\tb;c\r\nd;", L"\t;", L"a\tb;c\r\nd;", L"\t;"},
        {"control characters", L"\x01;\x1f\x7f;", L"\x02;", L"\x01;\x1f\x7f;", L"\x02;"},
        {"long extensions", repeated(L"Ab", 5000) + L";doc;", L"",
         repeated(L"ab", 5000) + L";" + L"doc" + L";", L""},
        {"5,000 available", numbered(L"E", 5000), L"", numbered(L"e", 5000), L""},
        {"5,000 selected", L"doc;", numbered(L"E", 5000), L"doc;", numbered(L"e", 5000)},
        {"5,000 in both", numbered(L"e", 5000), numbered(L"E", 5000), L"", numbered(L"e", 5000)},
        {"64 kB of separators", L"", repeated(L";", 65536), L"", repeated(L";", 65536)},
        {"64 kB without a separator", repeated(L"x", 65536), repeated(L"y", 65536), L"", L""},
        {"64 kB in one extension", repeated(L"x", 65535) + L";", L"", repeated(L"x", 65535) + L";", L""},
        {"64 kB of extensions", L"", repeated(L"abc;", 16384), L"", repeated(L"abc;", 16384)},
        {"1 MB in one extension", L"", repeated(L"X", 1 << 20) + L";", L"", repeated(L"x", 1 << 20) + L";"},
    };
}

class ExtensionLists : public SettingsTest, public testing::WithParamInterface<StoredLists> {};

TEST_P(ExtensionLists, AreShownAndWritten) {
    const StoredLists& row = GetParam();
    setText(L"AvailableExtensions", row.available);
    setText(L"SelectedExtensions", row.selected);
    openAttachments([&](frmAttachment& form) {
        EXPECT_TRUE(joined(form.lstAvailable) == row.shownAvailable);
        EXPECT_TRUE(joined(form.lstSelected) == row.shownSelected);
        EXPECT_EQ(form.cmdAdd.enabled(), !row.shownAvailable.empty());
        EXPECT_EQ(form.cmdRemove.enabled(), !row.shownSelected.empty());
        user.click(form.cmdOk);
    });
    EXPECT_TRUE(storedText(L"SelectedExtensions") == row.shownSelected);
    EXPECT_TRUE(storedText(L"AvailableExtensions") == row.available) << "never written";
    EXPECT_THAT(stage->messages(), IsEmpty());
}

std::string nameOf(const StoredLists& lists) {
    std::string name;
    bool upper = true;
    for (const char character : std::string(lists.what)) {
        const bool letter = (character >= 'a' && character <= 'z') ||
                            (character >= 'A' && character <= 'Z') || (character >= '0' && character <= '9');
        if (letter) name += upper && character >= 'a' ? static_cast<char>(character - 32) : character;
        upper = !letter;
    }
    return name;
}

void PrintTo(const StoredLists& lists, std::ostream* stream) { *stream << lists.what; }

INSTANTIATE_TEST_SUITE_P(All, ExtensionLists, testing::ValuesIn(table()),
                         [](const auto& row) { return nameOf(row.param); });

// --- Values that are no plain text ------------------------------------------------------------------------

class ForeignExtensions : public SettingsTest {};

TEST_F(ForeignExtensions, AreTextsUpToTheirFirstNulAndOfOtherTypesEmptyLists) {
    using namespace std::string_literals;
    constexpr std::uint32_t TEXT = 1, EXPANDED_TEXT = 2, BINARY = 3, SEVERAL_TEXTS = 7;
    struct Foreign {
        std::uint32_t type;
        std::string data;
        std::wstring selected;
    };
    setText(L"AvailableExtensions", L"doc;");
    for (const Foreign& foreign :
         {Foreign{TEXT, "pdf;\0rtf;\0"s, L"pdf;"}, Foreign{TEXT, "pdf;rtf;", L"pdf;rtf;"},
          Foreign{TEXT, "", L""}, Foreign{EXPANDED_TEXT, "pdf;", L""}, Foreign{BINARY, "pdf;", L""},
          Foreign{SEVERAL_TEXTS, "pdf;", L""},
          // A number is a piece without its separator.
          Foreign{4, "\x11\0\0\0"s, L""}}) {
        SCOPED_TRACE(std::to_string(foreign.type) + " " + foreign.data);
        stage->setRawValue(SETTINGS_KEY, L"SelectedExtensions", foreign.type,
                           vexa::Bytes(foreign.data.begin(), foreign.data.end()));
        openAttachments([&](frmAttachment& form) {
            EXPECT_EQ(joined(form.lstSelected), foreign.selected);
            EXPECT_EQ(joined(form.lstAvailable), L"doc;") << "nothing else is lost";
        });
    }
}

// --- The functions behind it ------------------------------------------------------------------------------

TEST(ExtensionFunctions, JoiningWhatWasSplitGivesTheTextUpToItsLastSeparator) {
    for (const std::wstring text : {L"", L";", L"a;", L"a;b", L"a;;b;", L";;x"}) {
        const std::size_t last = text.rfind(L';');
        EXPECT_EQ(vexa::joinExtensions(vexa::splitExtensions(text)),
                  last == std::wstring::npos ? std::wstring() : text.substr(0, last + 1));
    }
}

}  // namespace
}  // namespace tests
