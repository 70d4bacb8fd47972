#include "page/wizard_rule.h"

#include <set>

#include "common/guarded.h"
#include "common/knowledgebase_names.h"

namespace vexa {
namespace {

constexpr const wchar_t* EXTENSION = L".dct";

/// The files with content in the base folder and its subfolder, in lower case. Each folder is asked once and
/// not each file, which on a slow share takes as many times as long; where the base folder cannot be read
/// there is no subfolder either.
std::set<std::wstring> filesWithContent(Application& application, const std::wstring& folder) {
    std::set<std::wstring> found;
    attempt([&] {
        for (const std::wstring& asked : {folder, folder + L"\\Temp"})
            for (const std::wstring& name : application.platform.files.filesWithContent(asked, EXTENSION))
                found.insert(application.platform.conversions.lower(name));
    });
    return found;
}

bool anyHasContent(Application& application) {
    const std::int32_t count = knowledgebaseCount(application);
    const std::wstring folder = application.readText(application.ProfileKey, valueName::VexaBaseDir, L"");
    if (count == 0) return false;
    const std::set<std::wstring> files = filesWithContent(application, folder);
    for (std::int32_t index = 1; index <= count && !files.empty(); ++index) {
        const std::wstring name = knowledgebaseName(application, index, DEFAULT_KNOWLEDGEBASE);
        if (files.contains(application.platform.conversions.lower(name) + EXTENSION)) return true;
    }
    return false;
}

}  // namespace

bool wizardAllowed(Application& application) {
    if (application.ask(&AddIn::IsProcessing)) return false;
    const std::int32_t state =
        application.readInteger(application.ProfileKey, valueName::KBProcessState, processState::ended);
    return state == processState::ended && !anyHasContent(application);
}

}  // namespace vexa
