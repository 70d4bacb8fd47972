#include "page/wizard_rule.h"

#include <optional>

#include "common/guarded.h"
#include "common/knowledgebase_names.h"

namespace vexa {
namespace {

/// An add-in that cannot be asked processes nothing.
bool isProcessing(const Application& application) {
    bool processing = false;
    attempt([&] {
        const std::shared_ptr<AddIn> addIn = application.addIn;
        processing = addIn && addIn->IsProcessing();
    });
    return processing;
}

bool hasContent(FileSystem& files, const std::wstring& path) {
    return files.fileExists(path) && files.fileSize(path) > 0;
}

}  // namespace

WizardAnswer askWizardRule(Application& application) {
    constexpr WizardAnswer no{};
    if (isProcessing(application)) return no;
    const std::wstring& key = application.ProfileKey;
    if (application.readInteger(key, valueName::KBProcessState, processState::ended) != processState::ended)
        return no;

    const std::int32_t count = knowledgebaseCount(application);
    const std::wstring folder = application.readText(key, valueName::VexaBaseDir, L"");
    FileSystem& files = application.platform.files;
    std::optional<std::wstring> before;
    for (std::int32_t index = 1; index <= count; ++index) {
        std::wstring name = knowledgebaseName(application, index, L"default");
        // A count far too high makes names that all fall back to the same default.
        if (name == before) continue;
        if (hasContent(files, folder + L"\\" + name + L".dct")) return no;
        if (hasContent(files, folder + L"\\Temp\\" + name + L".dct")) return no;
        before = std::move(name);
    }
    return {true, count};
}

}  // namespace vexa
