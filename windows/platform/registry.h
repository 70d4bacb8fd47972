// The real registry behind the registry port: the narrow functions of advapi32.
#pragma once

#include "common/platform.h"

namespace win {

class Registry : public vexa::RegistryApi {
public:
    Status openKey(Key hive, const std::string& path, std::uint32_t access, Key& key) override;
    Status createKey(Key hive, const std::string& path, std::uint32_t access, Key& key) override;
    Status queryValue(Key key, const std::string& name, std::uint32_t& type, std::uint8_t* data,
                      std::uint32_t& size) override;
    Status setValue(Key key, const std::string& name, std::uint32_t type, const std::uint8_t* data,
                    std::uint32_t size) override;
    Status deleteValue(Key key, const std::string& name) override;
    Status closeKey(Key key) override;
};

}  // namespace win
