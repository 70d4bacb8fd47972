// The rooms include what docs/architecture.md lets them include: its table is read here, so that it stays
// true.
#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <set>
#include <sstream>

#include "tests/support/source_folder.h"

namespace tests {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

/// A room's folder, with a final "/", and the rooms that it may include.
using Rooms = std::map<std::string, std::set<std::string>>;

const std::string EVERYTHING = "everything";

/// What stands between backticks, in order.
std::vector<std::string> textsInBackticks(const std::string& cell) {
    std::vector<std::string> texts;
    std::istringstream pieces(cell);
    std::string piece;
    for (bool inside = false; std::getline(pieces, piece, '`'); inside = !inside)
        if (inside) texts.push_back(piece);
    return texts;
}

/// The table of a document: rows of "| `room/` | what lives there | `room/`, ... |".
Rooms readRooms(const std::string& document) {
    Rooms rooms;
    std::istringstream lines(document);
    for (std::string line; std::getline(lines, line);) {
        if (!line.starts_with("| `") || !line.ends_with(" |")) continue;
        const std::string last = line.substr(line.rfind("| ", line.size() - 3));
        const std::string folder = textsInBackticks(line).front();
        if (!folder.ends_with('/')) continue;
        const auto allowed = textsInBackticks(last);
        rooms[folder].insert(allowed.begin(), allowed.end());
        if (last.find(EVERYTHING) != std::string::npos) rooms[folder].insert(EVERYTHING);
    }
    return rooms;
}

/// The innermost room in which a file lies; empty where there is none.
std::string roomOf(const Rooms& rooms, const std::string& path) {
    std::string found;
    for (const auto& [room, allowed] : rooms)
        if (path.starts_with(room) && room.size() > found.size()) found = room;
    return found;
}

/// The includes of a file that its room does not have. Generated headers lie in no folder.
std::vector<std::string> wrongIncludes(const Rooms& rooms, const std::string& path, const std::string& text) {
    const std::string own = roomOf(rooms, path);
    if (own.empty()) return {path + " lies in no room"};
    const std::set<std::string>& allowed = rooms.at(own);
    if (allowed.contains(EVERYTHING)) return {};
    const std::string mark = "#include \"";
    std::vector<std::string> wrong;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (!line.starts_with(mark) || line.find('/') == std::string::npos) continue;
        const std::string included = line.substr(mark.size(), line.rfind('"') - mark.size());
        const std::string other = roomOf(rooms, included);
        if (other != own && !allowed.contains(other)) wrong.push_back(path + " includes " + included);
    }
    return wrong;
}

bool isSource(const fs::path& path) { return path.extension() == ".cpp" || path.extension() == ".h"; }

/// The sources below a folder, without what builds have made.
std::vector<fs::path> sourcesBelow(const fs::path& folder) {
    std::vector<fs::path> paths;
    for (auto entry = fs::recursive_directory_iterator(folder); entry != fs::recursive_directory_iterator();
         ++entry) {
        const std::string name = entry->path().filename().string();
        if (entry->is_directory() && (name == "build" || name.starts_with('.')))
            entry.disable_recursion_pending();
        if (entry->is_regular_file() && isSource(entry->path())) paths.push_back(entry->path());
    }
    return paths;
}

class RoomLint : public testing::Test {
protected:
    const fs::path sources = sourceFolder();
    const Rooms rooms = readRooms(contentOf(sources / "docs/architecture.md"));
    const Rooms planted = readRooms(
        "| Folder | What lives there | May include |\n"
        "|---|---|---|\n"
        "| `low/` | what `all` use | standard library |\n"
        "| `high/` | more | `low/` |\n"
        "| `high/inner/` | a room in a room | `low/`, `high/` |\n"
        "| `tests/` | the tests | everything |\n"
        "| a question | `an answer/` | of another table |\n");
};

TEST_F(RoomLint, EveryRoomIncludesWhatTheArchitectureLetsItInclude) {
    int read = 0;
    for (const fs::path& path : sourcesBelow(sources)) {
        const std::string place = fs::relative(path, sources).generic_string();
        EXPECT_THAT(wrongIncludes(rooms, place, contentOf(path)), IsEmpty());
        ++read;
    }
    EXPECT_GT(read, 200);
}

TEST_F(RoomLint, EveryFolderOfTheTableIsThereAndStandsBelowWhatItIncludes) {
    EXPECT_GE(rooms.size(), 10U);
    for (const auto& [room, allowed] : rooms) {
        EXPECT_TRUE(fs::is_directory(sources / room)) << room;
        for (const std::string& other : allowed) {
            if (other == EVERYTHING) continue;
            ASSERT_TRUE(rooms.contains(other)) << room << " may include " << other << ", which is no room";
            EXPECT_FALSE(rooms.at(other).contains(room)) << room << " and " << other << " include each other";
        }
    }
}

TEST_F(RoomLint, APlantedArrowUpIsFound) {
    EXPECT_THAT(
        wrongIncludes(planted, "low/a.cpp", "#include \"low/a.h\"\n#include <map>\n#include \"high/b.h\"\n"),
        ElementsAre("low/a.cpp includes high/b.h"));
    EXPECT_THAT(wrongIncludes(planted, "high/b.h", "#include \"tests/c.h\"\n#include \"high/inner/d.h\"\n"),
                ElementsAre("high/b.h includes tests/c.h", "high/b.h includes high/inner/d.h"));
}

TEST_F(RoomLint, AnArrowDownIsNoFault) {
    EXPECT_THAT(wrongIncludes(planted, "high/inner/d.cpp", "#include \"high/b.h\"\n#include \"low/a.h\"\n"),
                IsEmpty());
    EXPECT_THAT(wrongIncludes(planted, "tests/c.cpp", "#include \"high/b.h\"\n"), IsEmpty());
    EXPECT_THAT(wrongIncludes(planted, "low/a.cpp", "#include \"generated.h\"\n"), IsEmpty());
}

TEST_F(RoomLint, AFolderThatIsInNoRowIsFound) {
    EXPECT_THAT(wrongIncludes(planted, "attic/a.cpp", ""), ElementsAre("attic/a.cpp lies in no room"));
}

}  // namespace
}  // namespace tests
