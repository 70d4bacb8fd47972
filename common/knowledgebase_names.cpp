#include "common/knowledgebase_names.h"

#include <algorithm>

namespace vexa {

std::int32_t knowledgebaseCount(Application& application) {
    constexpr std::int32_t MOST = 100'000;
    return std::clamp(application.readInteger(application.ProfileKey, valueName::ProjectCount, 0), 0, MOST);
}

std::wstring knowledgebaseName(Application& application, std::int32_t index,
                               const std::wstring& defaultName) {
    return application.readText(application.ProfileKey, valueName::Project + std::to_wstring(index),
                                defaultName);
}

}  // namespace vexa
