#include "common/application.h"

#include "common/guarded.h"

namespace vexa {
Application::Application(Platform ports, ui::Screen& uiScreen)
    : platform(ports),
      screen(uiScreen),
      registry(platform.registry, platform.ansi, platform.conversions),
      log(platform, registry, settings) {}

void Application::recall(const ProcessMemory& memory) {
    settings = memory.settings;
    flags = memory.flags;
    bBaseDirChanged = memory.bBaseDirChanged;
    log.setStarted(memory.logStarted);
}

void Application::loadProfileKey() {
    const std::wstring prefix = std::wstring(RootKey) + L"\\";
    ProfileKey = prefix + readText(prefix, valueName::CurrentProfile, L"");
}

void Application::loadLogPath() {
    const std::wstring installed = platform.files.installationFolder() + L"\\Log\\";
    log.LogPath = readText(ProfileKey, valueName::LogPath, installed);
}

const std::wstring& Application::keyOf(const Setting& setting) const {
    static const std::wstring root = RootKey;
    return setting.key == SettingKey::root ? root : ProfileKey;
}

void Application::load(const Setting& setting) {
    const Value stored =
        registry.RegistryRead(HKEY_CURRENT_USER_HIVE, keyOf(setting), setting.name, setting.defaultValue);
    try {
        if (std::holds_alternative<std::wstring>(setting.defaultValue))
            storeSetting(settings, setting, asText(stored));
        else
            storeSetting(settings, setting, asInteger(stored, platform.conversions));
    } catch (const Error&) {
        return;  // a stored value that does not convert leaves the record as it was
    }
}

void Application::store(const Setting& setting) {
    const Value value = settingValue(settings, setting);
    const auto type = std::holds_alternative<std::wstring>(value) ? ValueType::text : ValueType::integer;
    registry.RegistryWrite(HKEY_CURRENT_USER_HIVE, keyOf(setting), setting.name, type, value);
}

std::wstring Application::readText(const std::wstring& key, const std::wstring& name,
                                   const std::wstring& defaultValue) {
    // Not found and not convertible are the same to a caller.
    try {
        return asText(registry.RegistryRead(HKEY_CURRENT_USER_HIVE, key, name, defaultValue));
    } catch (const Error&) {
        return defaultValue;
    }
}

std::int32_t Application::readInteger(const std::wstring& key, const std::wstring& name,
                                      std::int32_t defaultValue) {
    try {
        return asInteger(registry.RegistryRead(HKEY_CURRENT_USER_HIVE, key, name, defaultValue),
                         platform.conversions);
    } catch (const Error&) {
        return defaultValue;
    }
}

void Application::writeText(const std::wstring& key, const std::wstring& name, const std::wstring& text) {
    registry.RegistryWrite(HKEY_CURRENT_USER_HIVE, key, name, ValueType::text, text);
}

void Application::writeInteger(const std::wstring& key, const std::wstring& name, std::int32_t number) {
    registry.RegistryWrite(HKEY_CURRENT_USER_HIVE, key, name, ValueType::integer, number);
}

void Application::deleteValue(const std::wstring& key, const std::wstring& name) {
    registry.RegistryDelete(HKEY_CURRENT_USER_HIVE, key, name);
}

bool Application::ask(bool (AddIn::*question)()) const noexcept {
    bool answer = false;
    attempt([&] {
        const std::shared_ptr<AddIn> asked = addIn;  // another page may connect anew meanwhile
        answer = asked && (asked.get()->*question)();
    });
    return answer;
}

}  // namespace vexa
