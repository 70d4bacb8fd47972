// docs/settings.md shows the catalogue as it is, and every value that the program names.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "common/settings.h"
#include "docs/settings_table.h"
#include "tests/support/source_folder.h"
#include "tests/support/text.h"

namespace tests {
namespace {

std::string readAll(const std::string& path) { return contentOf(sourceFolder() + "/" + path); }

/// The texts in quotes of the lines that declare names of registry values.
std::vector<std::string> declaredNames(const std::string& header) {
    const std::string mark = " = L\"";
    std::vector<std::string> names;
    std::istringstream lines(header.substr(header.find("namespace valueName")));
    for (std::string line; std::getline(lines, line);) {
        const auto begin = line.find(mark);
        if (begin == std::string::npos) continue;
        const auto name = begin + mark.size();
        names.push_back(line.substr(name, line.find('"', name) - name));
    }
    return names;
}

TEST(SettingsDocument, HoldsTheTableOfTheCatalogue) {
    const std::string document = readAll("docs/settings.md");
    EXPECT_EQ(document, docs::withSettingsTable(document))
        << "run build/native/docs/settings_table docs/settings.md";
}

TEST(SettingsDocument, TheTableHasARowForEachSetting) {
    const std::string table = docs::settingsTable();
    const auto rows = static_cast<std::size_t>(std::ranges::count(table, '\n'));
    EXPECT_EQ(rows, vexa::settingsCatalogue().size() + 2);
    EXPECT_NE(table.find("| `MinRel` | profile | integer | 40 | 4 | minimum relevance"), std::string::npos);
    EXPECT_NE(table.find("| `LoggingInformation` | root | flag | on | 6 |"), std::string::npos);
    EXPECT_NE(table.find("| `Penalty1` | profile | colour | 0xFFFF00 | 18 |"), std::string::npos);
    EXPECT_NE(table.find("| `VexaBaseDir` | profile | text | (empty) | 1 |"), std::string::npos);
    EXPECT_NE(table.find("| `ProjectCount` | profile | integer | 0 | no |"), std::string::npos);
}

TEST(SettingsDocument, NamesEveryValueOfTheProgram) {
    const std::string document = readAll("docs/settings.md");
    for (const char* header : {"common/settings.h", "common/addin_contract.h"}) {
        const std::vector<std::string> names = declaredNames(readAll(header));
        EXPECT_GE(names.size(), 5U) << header;
        for (const std::string& name : names)
            EXPECT_NE(document.find("`" + name), std::string::npos) << name << " is not documented";
    }
}

TEST(SettingsDocument, ADocumentWithoutAPlaceForTheTableIsRefused) {
    EXPECT_THROW(static_cast<void>(docs::withSettingsTable("no marks")), std::runtime_error);
}

}  // namespace
}  // namespace tests
