// The diagnostic log: time-stamped lines in one text file, fresh for each process.
#pragma once

#include <string>

#include "common/modRegistry.h"
#include "common/platform.h"
#include "common/settings.h"

namespace vexa {

class DiagnosticLog {
public:
    /// `settings` holds the switch, read at each call.
    DiagnosticLog(Platform& platform, modRegistry& registry, const Settings& settings)
        : platform_(platform), registry_(registry), settings_(settings) {}

    /// Folder of the file with its final backslash: it is used as a prefix as it stands.
    std::wstring LogPath;

    /// Appends "MM/DD/YYYY hh:mm:ss:mmm", a tab, `text` and CR LF in the ANSI code page, while logging is on.
    /// A failure ends the call quietly; the next call tries again.
    void WriteLogLine(const std::wstring& text) noexcept;

    /// This process has written its first line.
    [[nodiscard]] bool started() const noexcept { return started_; }
    void setStarted(bool started) noexcept { started_ = started; }

private:
    void append(const std::wstring& text);

    Platform& platform_;
    modRegistry& registry_;
    const Settings& settings_;
    bool started_ = false;
};

}  // namespace vexa
