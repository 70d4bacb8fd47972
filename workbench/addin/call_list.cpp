#include "workbench/addin/call_list.h"

#include <algorithm>
#include <cstddef>
#include <cwchar>

namespace workbench {
namespace {

constexpr std::size_t MOST_CALLS = 10'000;
// The page polls the add-in by two questions in turn.
constexpr std::ptrdiff_t RECENT = 2;

void write(HANDLE file, const std::wstring& line) {
    const std::string bytes = toUtf8(line);
    DWORD written = 0;
    WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

}  // namespace

CallList::~CallList() {
    if (log_ != INVALID_HANDLE_VALUE) CloseHandle(log_);
}

bool CallList::openLog(const std::wstring& path) {
    log_ = CreateFileW(path.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                       CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    return log_ != INVALID_HANDLE_VALUE;
}

void CallList::note(const std::wstring& side, const std::wstring& name, const std::wstring& arguments) {
    Call call{{}, side, name, arguments};
    GetLocalTime(&call.time);
    if (log_ != INVALID_HANDLE_VALUE)
        write(log_, timeText(call.time) + L"\t" + side + L"\t" + name + L"\t" + arguments + L"\n");
    if (Call* earlier = recentLike(call)) {
        earlier->time = call.time;
        ++earlier->times;
        return;
    }
    if (calls_.size() == MOST_CALLS) calls_.clear();
    calls_.push_back(std::move(call));
    if (onChange) onChange();
}

Call* CallList::recentLike(const Call& call) {
    const auto like = [&](const Call& other) {
        return other.side == call.side && other.name == call.name && other.arguments == call.arguments;
    };
    const auto end = calls_.rend() - calls_.rbegin() > RECENT ? calls_.rbegin() + RECENT : calls_.rend();
    const auto found = std::find_if(calls_.rbegin(), end, like);
    return found == end ? nullptr : &*found;
}

void CallList::clear() {
    calls_.clear();
    if (onChange) onChange();
}

std::wstring timeText(const SYSTEMTIME& time) {
    wchar_t text[16];
    std::swprintf(text, 16, L"%02u:%02u:%02u.%03u", time.wHour, time.wMinute, time.wSecond,
                  time.wMilliseconds);
    return text;
}

std::string toUtf8(const std::wstring& text) {
    const int length = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(), size, nullptr, nullptr);
    return bytes;
}

}  // namespace workbench
