#include "tests/support/call_log.h"

#include <algorithm>

namespace tests {

bool CallLog::enter(const std::string& line) {
    lines_.push_back(line);
    const std::size_t index = calls_++;
    const auto due =
        std::ranges::find_if(planned_, [&](const Planned& one) { return line.starts_with(one.prefix); });
    if (due != planned_.end()) {
        const auto action = std::move(due->action);
        planned_.erase(due);
        action();
    }
    takeTime(line);
    return std::ranges::count(failingCalls_, index) > 0 ||
           std::ranges::any_of(failingPrefixes_,
                               [&](const std::string& prefix) { return line.starts_with(prefix); });
}

std::vector<std::string> CallLog::linesWith(const std::string& prefix) const {
    std::vector<std::string> found;
    std::ranges::copy_if(lines_, std::back_inserter(found),
                         [&](const std::string& line) { return line.starts_with(prefix); });
    return found;
}

void CallLog::clear() { lines_.clear(); }

void CallLog::failCall(std::size_t index) { failingCalls_.push_back(calls_ + index); }

void CallLog::failCallsWith(const std::string& prefix) { failingPrefixes_.push_back(prefix); }

void CallLog::during(const std::string& prefix, std::function<void()> action) {
    planned_.push_back({prefix, std::move(action)});
}

void CallLog::takes(const std::string& prefix, int milliseconds) {
    slow_.insert(slow_.begin(), {prefix, milliseconds});
}

void CallLog::takeTime(const std::string& line) {
    const auto slow =
        std::ranges::find_if(slow_, [&](const Slow& one) { return line.starts_with(one.prefix); });
    if (slow != slow_.end() && slow->milliseconds > 0) spend(slow->milliseconds);
}

void CallLog::forgetFaults() {
    slow_.clear();
    failingCalls_.clear();
    failingPrefixes_.clear();
    planned_.clear();
}

}  // namespace tests
