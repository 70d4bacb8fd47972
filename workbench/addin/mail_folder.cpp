#include "workbench/addin/mail_folder.h"

#include <windows.h>

#include <algorithm>
#include <cwchar>

#include "workbench/addin/call_list.h"

namespace workbench {
namespace {

constexpr const char* BOUNDARY = "=_quillmark_report";
constexpr std::size_t LINE = 76;  // characters of an encoded line

std::string base64(const std::string& bytes) {
    constexpr char DIGITS[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        const std::size_t count = std::min<std::size_t>(3, bytes.size() - i);
        unsigned group = 0;
        for (std::size_t k = 0; k < 3; ++k)
            group = group << 8 | (k < count ? static_cast<unsigned char>(bytes[i + k]) : 0U);
        for (std::size_t k = 0; k < 4; ++k) text += k <= count ? DIGITS[group >> (18 - 6 * k) & 63U] : '=';
    }
    return text;
}

std::string inLines(const std::string& text) {
    std::string lines;
    for (std::size_t i = 0; i < text.size(); i += LINE) lines += text.substr(i, LINE) + "\r\n";
    return lines;
}

/// A header's text on one line; encoded where it holds more than ASCII.
std::string headerText(std::wstring text) {
    std::ranges::replace_if(
        text, [](wchar_t c) { return c < L' '; }, L' ');
    const bool plain = std::ranges::all_of(text, [](wchar_t c) { return c < 0x7F; });
    return plain ? toUtf8(text) : "=?utf-8?B?" + base64(toUtf8(text)) + "?=";
}

std::string header(const char* name, const std::wstring& text) {
    return std::string(name) + ": " + headerText(text) + "\r\n";
}

std::string part(const char* type, const std::wstring& text) {
    return std::string("--") + BOUNDARY + "\r\nContent-Type: " + type +
           "\r\nContent-Transfer-Encoding: base64\r\n\r\n" + inLines(base64(toUtf8(text)));
}

const wchar_t* importanceText(long importance) {
    if (importance == 2) return L"high";
    return importance == 1 ? L"low" : L"normal";
}

/// As mail has it, in universal time.
std::wstring presentDate() {
    constexpr const wchar_t* DAYS[] = {L"Sun", L"Mon", L"Tue", L"Wed", L"Thu", L"Fri", L"Sat"};
    constexpr const wchar_t* MONTHS[] = {L"Jan", L"Feb", L"Mar", L"Apr", L"May", L"Jun",
                                         L"Jul", L"Aug", L"Sep", L"Oct", L"Nov", L"Dec"};
    SYSTEMTIME now;
    GetSystemTime(&now);
    wchar_t text[48];
    std::swprintf(text, 48, L"%ls, %u %ls %u %02u:%02u:%02u +0000", DAYS[now.wDayOfWeek], now.wDay,
                  MONTHS[now.wMonth - 1], now.wYear, now.wHour, now.wMinute, now.wSecond);
    return text;
}

HANDLE createNext(const std::wstring& folder, std::wstring& path) {
    for (int number = 1; number < 10'000; ++number) {
        path = folder + L"\\report-" + std::to_wstring(number) + L".eml";
        const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
        if (file != INVALID_HANDLE_VALUE || GetLastError() != ERROR_FILE_EXISTS) return file;
    }
    return INVALID_HANDLE_VALUE;
}

}  // namespace

std::string mailText(const Report& report, const std::wstring& date) {
    std::string mail =
        header("Date", date) + header("From", L"workbench@example.invalid") + header("To", report.to);
    if (!report.cc.empty()) mail += header("Cc", report.cc);
    mail += header("Subject", report.subject) + header("Importance", importanceText(report.importance));
    mail += "MIME-Version: 1.0\r\n";
    mail += std::string("Content-Type: multipart/alternative; boundary=\"") + BOUNDARY + "\"\r\n\r\n";
    mail += part("text/plain; charset=utf-8", report.body) + part("application/rtf", report.richBody);
    return mail + "--" + BOUNDARY + "--\r\n";
}

std::wstring writeMail(const std::wstring& folder, const Report& report) {
    CreateDirectoryW(folder.c_str(), nullptr);
    std::wstring path;
    const HANDLE file = createNext(folder, path);
    if (file == INVALID_HANDLE_VALUE) return {};
    const std::string mail = mailText(report, presentDate());
    DWORD written = 0;
    const BOOL complete = WriteFile(file, mail.data(), static_cast<DWORD>(mail.size()), &written, nullptr);
    CloseHandle(file);
    return complete && written == mail.size() ? path : std::wstring();
}

}  // namespace workbench
