// What outlives a page: one Application per process. Forms get it by reference.
#pragma once

#include <memory>
#include <string>

#include "common/diagnostic_log.h"
#include "common/error.h"
#include "common/modRegistry.h"
#include "common/platform.h"
#include "common/settings.h"

namespace ui {
class Screen;
}

namespace vexa {

/// Set by the dialogs, cleared by Apply.
struct ChangeFlags {
    bool dialogChanged = false;
    bool defaultKnowledgebaseChanged = false;
    bool shortcutChanged = false;
    bool operator==(const ChangeFlags&) const = default;
};

/// What a process knows of the program while everything else has been let go.
struct ProcessMemory {
    Settings settings;
    ChangeFlags flags;
    bool bBaseDirChanged = false;
    bool logStarted = false;
};

class Application {
public:
    Application(Platform ports, ui::Screen& uiScreen);

    [[nodiscard]] ProcessMemory remember() const { return {settings, flags, bBaseDirChanged, log.started()}; }
    void recall(const ProcessMemory& memory);

    Platform platform;
    ui::Screen& screen;
    modRegistry registry;
    Settings settings;
    ChangeFlags flags;
    /// A base folder was chosen that the page has not seen yet.
    bool bBaseDirChanged = false;
    /// Empty until connected.
    std::shared_ptr<AddIn> addIn;
    /// Pages between their start and their end; all of them use `addIn`.
    int livePages = 0;
    std::wstring ProfileKey;
    DiagnosticLog log;

    // Registry access below HKEY_CURRENT_USER; keys are RootKey, ProfileKey or a knowledgebase's own.
    /// Converted to the wanted type; `defaultValue` also where the stored value does not convert.
    [[nodiscard]] std::wstring readText(const std::wstring& key, const std::wstring& name,
                                        const std::wstring& defaultValue);
    [[nodiscard]] std::int32_t readInteger(const std::wstring& key, const std::wstring& name,
                                           std::int32_t defaultValue);
    void writeText(const std::wstring& key, const std::wstring& name, const std::wstring& text);
    void writeInteger(const std::wstring& key, const std::wstring& name, std::int32_t number);
    void deleteValue(const std::wstring& key, const std::wstring& name);

    /// Reads `CurrentProfile` and fixes the key of the profile's settings.
    void loadProfileKey();
    void loadLogPath();
    /// Reads one setting into the record, which keeps what it had where the stored value does not convert.
    void load(const Setting& setting);
    /// Writes one setting of the record.
    void store(const Setting& setting);

    void WriteLogLine(const std::wstring& text) noexcept { log.WriteLogLine(text); }

    void SetPointerDefault() { platform.desktop.setPointer(PointerShape::standard); }
    void SetPointerHourglass() { platform.desktop.setPointer(PointerShape::hourglass); }
    void SetPointerArrowHourglass() { platform.desktop.setPointer(PointerShape::arrowHourglass); }
    void DoEvents() { platform.desktop.doEvents(); }

    /// What the add-in answers; one that is gone or cannot be asked says no. It may let events run.
    [[nodiscard]] bool ask(bool (AddIn::*question)()) const noexcept;

private:
    [[nodiscard]] const std::wstring& keyOf(const Setting& setting) const;
};

}  // namespace vexa
