// Every call between the page, its host and the add-in, as it came.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

namespace workbench {

struct Call {
    SYSTEMTIME time;    ///< local
    std::wstring side;  ///< who called whom
    std::wstring name;
    std::wstring arguments;
    unsigned times = 1;  ///< how often it came, one after the other
};

class CallList {
public:
    CallList() = default;
    CallList(const CallList&) = delete;
    CallList& operator=(const CallList&) = delete;
    ~CallList();

    /// From now on each call is appended to this file as well: time, side, name and arguments, separated by
    /// tabs, in UTF-8. False where the file cannot be written.
    bool openLog(const std::wstring& path);
    /// A call like one of the two before is counted on that one.
    void note(const std::wstring& side, const std::wstring& name, const std::wstring& arguments = {});
    void clear();

    [[nodiscard]] const std::vector<Call>& calls() const { return calls_; }
    /// Called after each new entry, not where one is counted up.
    std::function<void()> onChange;

private:
    [[nodiscard]] Call* recentLike(const Call& call);

    std::vector<Call> calls_;
    HANDLE log_ = INVALID_HANDLE_VALUE;
};

// Who calls whom.
namespace side {
inline constexpr const wchar_t* pageToAddIn = L"page > add-in";
inline constexpr const wchar_t* pageToHost = L"page > host";
inline constexpr const wchar_t* hostToPage = L"host > page";
inline constexpr const wchar_t* addInToPage = L"add-in > page";
inline constexpr const wchar_t* pageToWindow = L"page > search window";
}  // namespace side

/// "12:34:56.789"
[[nodiscard]] std::wstring timeText(const SYSTEMTIME& time);
[[nodiscard]] std::string toUtf8(const std::wstring& text);

}  // namespace workbench
