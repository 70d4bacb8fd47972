#include "page/wizard_rule.h"

#include "common/knowledgebase_names.h"

namespace vexa {
namespace {

constexpr std::int32_t PROCESSING_ENDED = 3;

bool hasContent(FileSystem& files, const std::wstring& path) {
    return files.fileExists(path) && files.fileSize(path) > 0;
}

}  // namespace

bool wizardAllowed(Application& application) {
    if (application.addIn && application.addIn->IsProcessing()) return false;
    const std::wstring& key = application.ProfileKey;
    if (application.readInteger(key, valueName::KBProcessState, PROCESSING_ENDED) != PROCESSING_ENDED)
        return false;

    const std::int32_t count = knowledgebaseCount(application);
    const std::wstring folder = application.readText(key, valueName::VexaBaseDir, L"");
    FileSystem& files = application.platform.files;
    for (std::int32_t index = 1; index <= count; ++index) {
        const std::wstring name = knowledgebaseName(application, index, L"default");
        if (hasContent(files, folder + L"\\" + name + L".dct")) return false;
        if (hasContent(files, folder + L"\\Temp\\" + name + L".dct")) return false;
    }
    return true;
}

}  // namespace vexa
