// The settings as they are kept, written down a second time: the program's own catalogue is held to this
// list, and the tests take names and orders from here alone.
#pragma once

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "common/value.h"

namespace tests {

struct KnownSetting {
    const char* name;
    vexa::Value standard;  ///< what the record holds where nothing is stored; flags are 0 or 1
    int written;           ///< the position among Apply's writes; 0 is never written
};

/// In the order in which they are read at start.
[[nodiscard]] inline const std::vector<KnownSetting>& knownSettings() {
    static const std::vector<KnownSetting> settings{
        {"VexaBaseDir", L"", 1},
        {"Projectname", L"default", 0},
        {"DefaultProject", L"default", 2},
        {"ProjectCount", 0, 0},
        {"MaxEntries", 20, 3},
        {"MinRel", 40, 4},
        {"LoggingInformation", 1, 6},
        {"AutoInfo", 0, 5},
        {"AutoFindUnread", 1, 7},
        {"AutoFindAll", 0, 8},
        {"AutoFindDelay", 10, 9},
        {"FindShortcut", 0, 10},
        {"AutoAddUnreadMail", 0, 11},
        {"AutoAddSentMail", 0, 12},
        {"DisplayHotSpots", 1, 13},
        {"DisplayTextMarks", 0, 14},
        {"KeepHighlights", 0, 15},
        {"ColorHotSpots", 65535, 16},
        {"Penalty0", 65280, 17},
        {"Penalty1", 16776960, 18},
        {"Penalty2", 16711680, 19},
        {"Penalty3", 65535, 20},
        {"Penalty4", 16711935, 21},
        {"Penalty5", 255, 22},
        {"AddAttachments", 1, 23},
        {"AddAllAttachments", 1, 24},
        {"AddSizelimitedAttachments", 0, 25},
        {"AttachmentsMaxSize", 1024, 26},
        {"AddAttachmentsToQuery", 0, 27},
    };
    return settings;
}

/// The one that all profiles share.
inline constexpr const char* SETTING_OF_THE_ROOT_KEY = "LoggingInformation";

[[nodiscard]] inline std::vector<std::string> namesAsRead() {
    std::vector<std::string> names;
    for (const KnownSetting& setting : knownSettings()) names.emplace_back(setting.name);
    return names;
}

[[nodiscard]] inline std::vector<std::string> namesAsWritten() {
    std::map<int, std::string> names;
    for (const KnownSetting& setting : knownSettings())
        if (setting.written > 0) names[setting.written] = setting.name;
    std::vector<std::string> ordered;
    for (const auto& [position, name] : names) ordered.push_back(name);
    return ordered;
}

/// Those that the attachment dialog writes at once, in its order.
[[nodiscard]] inline std::vector<std::string> namesOfAttachments() {
    const std::vector<std::string> names = namesAsWritten();
    const auto first = std::ranges::find(names, "AddAttachments");
    return {first, first + 5};
}

}  // namespace tests
