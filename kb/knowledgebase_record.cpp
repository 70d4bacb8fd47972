#include "kb/knowledgebase_record.h"

#include <algorithm>

#include "kb/date_serial.h"

namespace vexa {
namespace {

constexpr std::int32_t KILO = 1024;
constexpr std::int32_t MEGA = 1024 * 1024;

std::int32_t inUnits(std::int32_t bytes, std::int32_t unit) {
    const std::int32_t whole = bytes / unit;
    const std::int32_t twiceRest = bytes % unit * 2;
    const bool up = twiceRest > unit || (twiceRest == unit && whole % 2 == 1);
    return whole + (up ? 1 : 0);
}

}  // namespace

std::wstring knowledgebaseKey(const Application& application, const std::wstring& name) {
    return application.ProfileKey + L"\\" + name;
}

KnowledgebaseRecord readKnowledgebase(Application& application, const std::wstring& name) {
    const std::wstring key = knowledgebaseKey(application, name);
    KnowledgebaseRecord record{name, application.readText(key, valueName::KBLastUpdate, NEVER_UPDATED),
                               application.readInteger(key, valueName::KBSize, -1),
                               application.readInteger(key, valueName::KBDocuments, -1)};
    // The folders' sizes are opened along with the record; the list has no column for them.
    static_cast<void>(application.readText(key + L"\\" + valueName::Foldersize, L"", L""));
    return record;
}

std::int32_t documentCount(Application& application, const std::wstring& name) {
    return application.readInteger(knowledgebaseKey(application, name), valueName::KBDocuments, 0);
}

std::wstring sizeText(std::int32_t bytes) {
    if (bytes >= MEGA) return std::to_wstring(inUnits(bytes, MEGA)) + L" MB";
    if (bytes < KILO) return std::to_wstring(bytes) + L" Byte";
    return std::to_wstring(inUnits(bytes, KILO)) + L" KB";
}

std::wstring documentsText(std::int32_t documents) {
    constexpr std::size_t WIDTH = 8;
    if (documents == -1) return UNKNOWN;
    const std::wstring digits = std::to_wstring(documents);
    return std::wstring(WIDTH - std::min(WIDTH, digits.size()), L' ') + digits;
}

double lastUpdate(const KnowledgebaseRecord& record, Conversions& conversions) {
    if (const auto serial = numberFromText(record.KBLastUpdate)) return *serial;
    return conversions.toDate(record.KBLastUpdate);
}

}  // namespace vexa
