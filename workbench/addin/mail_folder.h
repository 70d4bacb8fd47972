// Reports that the page asked the add-in to send, as mail files in a folder.
#pragma once

#include <string>

namespace workbench {

struct Report {
    std::wstring subject;
    std::wstring body;
    std::wstring richBody;  ///< RTF
    std::wstring to;
    std::wstring cc;
    long importance;  ///< 2 high, 1 low, 0 normal
};

/// The report as a mail: multipart/alternative with text/plain in UTF-8 and application/rtf.
[[nodiscard]] std::string mailText(const Report& report, const std::wstring& date);

/// Writes the report as the next free "report-<number>.eml" of the folder, which is created where it is
/// missing. Returns the file's path; empty where it cannot be written.
std::wstring writeMail(const std::wstring& folder, const Report& report);

}  // namespace workbench
