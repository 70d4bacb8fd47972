#include "windows/platform/text.h"

#include "common/error.h"

namespace win {
namespace {

std::wstring decoded(const std::string& bytes, UINT codePage) {
    if (bytes.empty()) return {};
    const int size = static_cast<int>(bytes.size());
    const int length = MultiByteToWideChar(codePage, 0, bytes.data(), size, nullptr, 0);
    std::wstring text(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(codePage, 0, bytes.data(), size, text.data(), length);
    return text;
}

}  // namespace

std::string toAnsi(const std::wstring& text) {
    if (text.empty()) return {};
    const int length = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_ACP, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_ACP, 0, text.data(), length, bytes.data(), size, nullptr, nullptr);
    return bytes;
}

std::wstring fromAnsi(const std::string& bytes) { return decoded(bytes, CP_ACP); }

std::wstring fromUtf8(const std::string& bytes) { return decoded(bytes, CP_UTF8); }

std::wstring windowText(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

std::wstring systemErrorText(DWORD code) {
    wchar_t buffer[512];
    const DWORD flags =
        FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK;
    const DWORD length = FormatMessageW(flags, nullptr, code, 0, buffer, 512, nullptr);
    std::wstring text(buffer, length);
    while (!text.empty() && text.back() <= L' ') text.pop_back();
    return text.empty() ? L"Error " + std::to_wstring(code) : text;
}

void throwLastError() { throw vexa::Error(systemErrorText(GetLastError())); }

}  // namespace win
