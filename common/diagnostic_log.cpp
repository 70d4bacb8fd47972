#include "common/diagnostic_log.h"

#include "common/product_names.h"

namespace vexa {
namespace {

std::wstring padded(int number, std::size_t width) {
    std::wstring digits = std::to_wstring(number);
    if (digits.size() < width) digits.insert(0, width - digits.size(), L'0');
    return digits;
}

std::wstring stamp(const LocalTime& time) {
    return padded(time.month, 2) + L"/" + padded(time.day, 2) + L"/" + padded(time.year, 4) + L" " +
           padded(time.hour, 2) + L":" + padded(time.minute, 2) + L":" + padded(time.second, 2) + L":" +
           padded(time.milliseconds, 3) + L"\t";
}

}  // namespace

void DiagnosticLog::WriteLogLine(const std::wstring& text) noexcept {
    try {
        if (settings_.LoggingInformation) append(text);
    } catch (...) {
        return;  // a line that cannot be written is lost; the caller goes on
    }
}

void DiagnosticLog::append(const std::wstring& text) {
    const std::wstring timeStamp = stamp(platform_.clock.localTime());
    const std::wstring path = LogPath + COMPONENT_TITLE + L".log";

    if (!platform_.files.folderExists(LogPath)) platform_.files.createFolder(LogPath);
    if (!started_ && platform_.files.fileExists(path)) platform_.files.deleteFile(path);

    const auto file = platform_.files.openForAppending(path);
    const auto writeLine = [&](const std::wstring& line) {
        file->write(platform_.ansi.toAnsi(timeStamp + line + L"\r\n"));
    };
    if (!started_) {
        const Value version =
            registry_.RegistryRead(HKEY_CURRENT_USER_HIVE, RootKey, valueName::AppVer, std::wstring());
        const auto* versionText = std::get_if<std::wstring>(&version);
        if (versionText != nullptr && !versionText->empty()) writeLine(*versionText);
    }
    writeLine(text);
    started_ = true;
}

}  // namespace vexa
