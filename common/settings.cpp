#include "common/settings.h"

#include <algorithm>
#include <array>
#include <type_traits>
#include <vector>

namespace vexa {
namespace {

/// The automation value of true.
constexpr std::int32_t TRUE_VALUE = -1;

const auto& catalogue() {
    using S = Settings;
    using K = SettingKey;
    static const auto table = std::to_array<Setting>({
        {valueName::VexaBaseDir, K::profile, &S::VexaBaseDir, L"", 1,
         L"base folder of the knowledgebase files"},
        {valueName::Projectname, K::profile, &S::Projectname, DEFAULT_KNOWLEDGEBASE, 0,
         L"current knowledgebase, the one the search uses"},
        {valueName::DefaultProject, K::profile, &S::DefaultProject, DEFAULT_KNOWLEDGEBASE, 2,
         L"knowledgebase that is updated automatically"},
        {valueName::ProjectCount, K::profile, &S::ProjectCount, 0, 0, L"number of knowledgebases"},
        {L"MaxEntries", K::profile, &S::MaxEntries, 20, 3, L"maximum number of results in the result list",
         Bounds{10, 10000}},
        {L"MinRel", K::profile, &S::MinRel, 40, 4, L"minimum relevance of a result, in percent",
         Bounds{0, 100}},
        {L"LoggingInformation", K::root, &S::LoggingInformation, 1, 6, L"diagnostic log on or off"},
        {L"AutoInfo", K::profile, &S::AutoInfo, 0, 5, L"automatic search on or off"},
        {L"AutoFindUnread", K::profile, &S::AutoFindUnread, TRUE_VALUE, 7,
         L"automatic search for unread mail"},
        {L"AutoFindAll", K::profile, &S::AutoFindAll, 0, 8, L"automatic search for all mail"},
        {L"AutoFindDelay", K::profile, &S::AutoFindDelay, 10, 9, L"seconds before the automatic search",
         Bounds{0, 60}},
        {L"FindShortcut", K::profile, &S::FindShortcut, 0, 10,
         L"keyboard shortcut of the search: 0 Ctrl+S, 1 Shift+F3"},
        {L"AutoAddUnreadMail", K::profile, &S::AutoAddUnreadMail, 0, 11,
         L"add unread mail to the knowledgebase automatically"},
        {L"AutoAddSentMail", K::profile, &S::AutoAddSentMail, 0, 12,
         L"add sent mail to the knowledgebase automatically"},
        {L"DisplayHotSpots", K::profile, &S::DisplayHotSpots, TRUE_VALUE, 13, L"show results with hotspots"},
        {L"DisplayTextMarks", K::profile, &S::DisplayTextMarks, 0, 14, L"show results with text marks"},
        {L"KeepHighlights", K::profile, &S::KeepHighlights, 0, 15,
         L"keep highlights when saving or forwarding"},
        {L"ColorHotSpots", K::profile, &S::ColorHotSpots, 0x00FFFF, 16, L"hotspot colour, 0x00BBGGRR"},
        {L"Penalty0", K::profile, &S::Penalty0, 0x00FF00, 17, L"text-mark colour of the best match"},
        {L"Penalty1", K::profile, &S::Penalty1, 0xFFFF00, 18, L"text-mark colour of level 1"},
        {L"Penalty2", K::profile, &S::Penalty2, 0xFF0000, 19, L"text-mark colour of level 2"},
        {L"Penalty3", K::profile, &S::Penalty3, 0x00FFFF, 20, L"text-mark colour of level 3"},
        {L"Penalty4", K::profile, &S::Penalty4, 0xFF00FF, 21, L"text-mark colour of level 4"},
        {L"Penalty5", K::profile, &S::Penalty5, 0x0000FF, 22, L"text-mark colour of level 5"},
        {L"AddAttachments", K::profile, &S::AddAttachments, 1, 23, L"add attachments to the knowledgebase"},
        {L"AddAllAttachments", K::profile, &S::AddAllAttachments, 1, 24, L"add all attached files"},
        {L"AddSizelimitedAttachments", K::profile, &S::AddSizelimitedAttachments, 0, 25,
         L"add only files up to AttachmentsMaxSize"},
        {L"AttachmentsMaxSize", K::profile, &S::AttachmentsMaxSize, 1024, 26,
         L"size limit of attachments in KB", Bounds{1, 65000}},
        {L"AddAttachmentsToQuery", K::profile, &S::AddAttachmentsToQuery, 0, 27,
         L"add file text to the query of the automatic search"},
    });
    return table;
}

}  // namespace

Settings::Settings() {
    for (const Setting& setting : settingsCatalogue()) storeSetting(*this, setting, setting.defaultValue);
}

std::span<const Setting> settingsCatalogue() { return catalogue(); }

std::span<const Setting* const> applyOrder() {
    static const std::vector<const Setting*> order = [] {
        std::vector<const Setting*> written;
        for (const Setting& setting : settingsCatalogue())
            if (setting.applyOrder > 0) written.push_back(&setting);
        std::ranges::sort(written, {}, &Setting::applyOrder);
        return written;
    }();
    return order;
}

Bounds boundsOf(std::int32_t Settings::*number) {
    const Setting& setting = settingOf(number);
    if (!setting.bounds) throw std::logic_error("the catalogue gives this number no bounds");
    return *setting.bounds;
}

void storeSetting(Settings& settings, const Setting& setting, const Value& value) {
    const auto store = [&]<class T>(T Settings::*member) {
        if constexpr (std::is_same_v<T, bool>)
            settings.*member = std::get<std::int32_t>(value) != 0;
        else
            settings.*member = std::get<T>(value);
    };
    std::visit(store, setting.member);
}

Value settingValue(const Settings& settings, const Setting& setting) {
    const auto fetch = [&]<class T>(T Settings::*member) -> Value {
        if constexpr (std::is_same_v<T, bool>)
            return settings.*member ? 1 : 0;
        else
            return settings.*member;
    };
    return std::visit(fetch, setting.member);
}

}  // namespace vexa
