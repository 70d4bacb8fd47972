// What the program asked of the machine, in order, and which of its calls shall fail.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace tests {

/// Every call that leaves the program, as a line, in order. Lines read
///   "registry open <path>", "registry create <path>", "registry query <path>\<value>" (each of the two
///   queries), "registry set <path>\<value> = <value>", "registry delete <path>\<value>", "registry close
///   <path>", "files <operation> <path>", "clock sleep <ms>", "addin <operation>(<arguments, ...>)", "addin
///   connect", "locate addin", "message <window> <message> <wParam> <lParam>", "pointer <number>",
///   "doevents", "timer set <ms>", "timer kill <identifier>", "screen message <text>", "screen colour
///   <initial> <title>", "site OnStatusChange", "site DisplayName".
/// Wide texts are UTF-8, truth values 1 or 0, binary values pairs of hexadecimal digits.
class CallLog {
public:
    /// Called by the ports before each call; answers whether this call shall fail, and runs what is to
    /// happen during it.
    bool enter(const std::string& line);

    [[nodiscard]] const std::vector<std::string>& lines() const { return lines_; }
    /// The lines that begin with `prefix`.
    [[nodiscard]] std::vector<std::string> linesWith(const std::string& prefix) const;
    void clear();

    /// The call with this index from now on (0 is the next) fails.
    void failCall(std::size_t index);
    /// Every call whose line begins with `prefix` fails, from now on.
    void failCallsWith(const std::string& prefix);
    /// Runs once, inside the next call whose line begins with `prefix`, before it takes effect.
    void during(const std::string& prefix, std::function<void()> action);
    /// Every call whose line begins with `prefix` takes so long, from now on; 0 is no time at all. Of several
    /// prefixes the one that was given last counts.
    void takes(const std::string& prefix, int milliseconds);
    /// Some call takes time.
    [[nodiscard]] bool timePasses() const { return !slow_.empty(); }
    /// How time passes on this back end.
    std::function<void(int milliseconds)> spend;
    /// No call fails and nothing more happens during one; none takes time.
    void forgetFaults();

private:
    struct Planned {
        std::string prefix;
        std::function<void()> action;
    };
    std::vector<std::string> lines_;
    std::size_t calls_ = 0;
    std::vector<std::size_t> failingCalls_;
    std::vector<std::string> failingPrefixes_;
    struct Slow {
        std::string prefix;
        int milliseconds;
    };
    void takeTime(const std::string& line);

    std::vector<Planned> planned_;
    std::vector<Slow> slow_;  ///< the last one first
};

}  // namespace tests
