// Rules for the identifiers of dialogs and controls, each seen to be broken where it is.
#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <map>

#include "tests/lint/dialog_pages.h"
#include "tests/support/source_folder.h"

namespace headless {
namespace {

namespace fs = std::filesystem;

using Findings = std::vector<std::string>;
using Files = std::map<std::string, std::string>;  ///< content by path below the source folder
using Identifiers = std::vector<std::pair<std::string, int>>;

constexpr const char* ROOMS[] = {"common", "page", "settings", "kb", "report", "ui", "windows"};

/// Where identifiers stand.
struct Places {
    std::map<std::string, Identifiers> headers;  ///< by path
    Files scripts;
    Files code;
    std::vector<DialogTemplate> dialogs;
};

Files filesEndingWith(const std::string& ending) {
    Files files;
    const fs::path sources = tests::sourceFolder();
    for (const char* room : ROOMS)
        for (const auto& entry : fs::recursive_directory_iterator(sources / room))
            if (entry.is_regular_file() && entry.path().string().ends_with(ending))
                files[fs::relative(entry.path(), sources).string()] = tests::contentOf(entry.path());
    return files;
}

Places placesOfTheProduct() {
    Places places{{}, filesEndingWith(".rc"), filesEndingWith(".cpp"), allDialogs()};
    places.code.merge(filesEndingWith(".h"));
    std::erase_if(places.code, [](const auto& file) { return file.first.ends_with("ids.h"); });
    for (const auto& [path, text] : filesEndingWith("ids.h"))
        places.headers[path] = readIdentifiers(tests::sourceFolder() + "/" + path);
    return places;
}

bool containsWord(const std::string& text, const std::string& word) {
    for (auto at = text.find(word); at != std::string::npos; at = text.find(word, at + 1)) {
        const bool begins = at == 0 || !isWordCharacter(text[at - 1]);
        const std::size_t end = at + word.size();
        if (begins && (end == text.size() || !isWordCharacter(text[end]))) return true;
    }
    return false;
}

bool anyContainsWord(const Files& files, const std::string& word) {
    return std::ranges::any_of(files, [&](const auto& file) { return containsWord(file.second, word); });
}

// --- The rules --------------------------------------------------------------------------------------------

void givenTwice(const Places& places, Findings& found) {
    std::map<std::string, std::string> names;
    std::map<int, std::string> numbers;
    for (const auto& [path, identifiers] : places.headers)
        for (const auto& [name, number] : identifiers) {
            if (!names.emplace(name, path).second)
                found.push_back(name + " is in " + names[name] + " and in " + path);
            if (!numbers.emplace(number, name).second)
                found.push_back(name + " has the number of " + numbers[number]);
        }
}

void stale(const Places& places, Findings& found) {
    for (const auto& [path, identifiers] : places.headers)
        for (const auto& [name, number] : identifiers)
            if (!anyContainsWord(places.scripts, name)) found.push_back(name + " is stale");
}

void neverShown(const Places& places, Findings& found) {
    for (const DialogTemplate& dialog : places.dialogs)
        if (!anyContainsWord(places.code, dialog.idName)) found.push_back(dialog.idName + " is never shown");
}

/// Controls that take input and that no code uses.
void unused(const Places& places, Findings& found) {
    for (const DialogTemplate& dialog : places.dialogs)
        for (const TemplateControl& control : dialog.controls)
            if (!isDecoration(control) && !anyContainsWord(places.code, control.idName))
                found.push_back(control.idName + " is used by no code");
}

void outsideTheirBlock(const Places& places, Findings& found) {
    constexpr int BLOCK = 100;
    constexpr int SHARED = 10;  // the buttons that Enter and Esc press
    for (const DialogTemplate& dialog : places.dialogs)
        for (const TemplateControl& control : dialog.controls)
            if (control.id >= SHARED && (control.id <= dialog.id || control.id >= dialog.id + BLOCK))
                found.push_back(control.idName + " lies outside the block of " + dialog.idName);
}

Findings findingsIn(const Places& places) {
    Findings found;
    for (const auto rule : {givenTwice, stale, neverShown, unused, outsideTheirBlock}) rule(places, found);
    return found;
}

// --- The product ------------------------------------------------------------------------------------------

TEST(IdentifierLint, NoIdentifierBreaksARule) {
    const Places places = placesOfTheProduct();
    EXPECT_TRUE(places.headers.contains("page/ctlPPE.ids.h"));
    EXPECT_GE(places.headers.size(), 9U);
    EXPECT_GE(places.code.size(), 40U);
    EXPECT_THAT(findingsIn(places), testing::IsEmpty());
}

/// A dialog with a text box and a label, and all that goes with them.
class PlantedIdentifiers : public testing::Test {
protected:
    PlantedIdentifiers() { EXPECT_THAT(findingsIn(places), testing::IsEmpty()) << "without a flaw"; }
    void expectFound(const std::string& finding) {
        EXPECT_THAT(findingsIn(places), testing::ElementsAre(finding));
    }

    Places places{{{"kb/frmOne.ids.h", {{"IDD_frmOne", 500}, {"IDC_txtOne", 501}, {"IDC_lblOne", 502}}}},
                  {{"kb/frmOne.rc", "IDD_frmOne DIALOG EDITTEXT IDC_txtOne,1 LTEXT \"\",IDC_lblOne,1"}},
                  {{"kb/frmOne.cpp", "createDialog(IDD_frmOne) control(IDC_txtOne);"}},
                  {{"IDD_frmOne",
                    500,
                    "kb/frmOne.rc",
                    L"",
                    {},
                    {},
                    {{"Edit", "IDC_txtOne", 501, L"", {}, {}}, {"Static", "IDC_lblOne", 502, L"", {}, {}}}}}};
    Identifiers& identifiers = places.headers["kb/frmOne.ids.h"];
    std::string& code = places.code["kb/frmOne.cpp"];
};

TEST_F(PlantedIdentifiers, ANameThatIsGivenTwiceIsFound) {
    places.headers["kb/frmTwo.ids.h"] = {{"IDC_txtOne", 601}};
    expectFound("IDC_txtOne is in kb/frmOne.ids.h and in kb/frmTwo.ids.h");
}

TEST_F(PlantedIdentifiers, ANumberThatIsGivenTwiceIsFound) {
    identifiers[2].second = 501;
    expectFound("IDC_lblOne has the number of IDC_txtOne");
}

TEST_F(PlantedIdentifiers, OneThatStandsInNoScriptIsFoundThoughItBeginsAnother) {
    identifiers.push_back({"IDC_txt", 503});
    expectFound("IDC_txt is stale");
}

TEST_F(PlantedIdentifiers, ADialogThatNoCodeMakesIsFound) {
    code = "createDialog(IDD_frmOneMore) control(IDC_txtOne);";
    expectFound("IDD_frmOne is never shown");
}

TEST_F(PlantedIdentifiers, AControlForInputThatNoCodeUsesIsFoundAndALabelIsNot) {
    code = "createDialog(IDD_frmOne) control(myIDC_txtOne);";
    expectFound("IDC_txtOne is used by no code");
}

TEST_F(PlantedIdentifiers, AControlOutsideItsDialogsBlockIsFoundFromBothSides) {
    for (const int number : {10, 500, 600}) {
        places.dialogs[0].controls[0].id = number;
        expectFound("IDC_txtOne lies outside the block of IDD_frmOne");
    }
    for (const int number : {9, 501, 599}) {
        places.dialogs[0].controls[0].id = number;
        EXPECT_THAT(findingsIn(places), testing::IsEmpty()) << number;
    }
}

}  // namespace
}  // namespace headless
