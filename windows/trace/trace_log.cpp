#include "windows/trace/trace_log.h"

#include <cstdio>
#include <mutex>

namespace trace {
namespace {

constexpr wchar_t FILE_NAME[] = L"VexaPPE-trace.log";

std::wstring filePath() {
    wchar_t path[MAX_PATH] = L"";
    if (GetEnvironmentVariableW(L"VEXAPPE_TRACE", path, MAX_PATH) != 0) return path;
    GetTempPathW(MAX_PATH, path);
    return std::wstring(path) + FILE_NAME;
}

std::wstring head(unsigned number) {
    SYSTEMTIME now;
    GetLocalTime(&now);
    wchar_t text[64];
    std::swprintf(text, 64, L"%06u %02u:%02u:%02u.%03u [%5lu] ", number, now.wHour, now.wMinute, now.wSecond,
                  now.wMilliseconds, GetCurrentThreadId());
    return text;
}

void append(const std::wstring& line) {
    char bytes[4000];
    const int length = WideCharToMultiByte(CP_UTF8, 0, line.c_str(), static_cast<int>(line.size()), bytes,
                                           sizeof bytes, nullptr, nullptr);
    // Opened for each line: what has happened stands in the file when the process crashes.
    const HANDLE file = CreateFileW(filePath().c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return;
    DWORD written = 0;
    WriteFile(file, bytes, static_cast<DWORD>(length), &written, nullptr);
    CloseHandle(file);
}

}  // namespace

int& Deeper::depth() {
    thread_local int depth = 0;
    return depth;
}

void write(const std::wstring& text) noexcept {
    static std::mutex mutex;
    static unsigned number = 0;
    const DWORD error = GetLastError();  // the trace changes nothing that callers may look at
    try {
        const std::lock_guard lock(mutex);
        append(head(++number) + std::wstring(static_cast<std::size_t>(2 * Deeper::depth()), L' ') +
               text.substr(0, 900) + L"\r\n");
    } catch (...) {
        OutputDebugStringW(L"VexaPPE trace: a line was lost\n");
    }
    SetLastError(error);
}

}  // namespace trace
