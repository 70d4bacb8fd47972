// How often a question may be asked whose answer can take long.
#pragma once

#include <limits>

#include "common/platform.h"

namespace vexa {

/// Times a question. After one that took t it is not due for 9 t: whoever asks when it is due alone spends a
/// tenth of the time on it at most.
class Pace {
public:
    explicit Pace(Clock& clock) : clock_(clock) {}

    /// Never while the question is being asked.
    [[nodiscard]] bool due() const { return clock_.milliseconds() >= next_; }

    /// Lasts while the question is being asked.
    class Question {
    public:
        explicit Question(Pace& pace) : pace_(pace), begin_(pace.clock_.milliseconds()) {
            pace.next_ = NEVER;
        }
        ~Question() {
            const std::int64_t end = pace_.clock_.milliseconds();
            pace_.next_ = end + REST * (end - begin_);
        }
        Question(const Question&) = delete;
        Question& operator=(const Question&) = delete;

    private:
        Pace& pace_;
        std::int64_t begin_;
    };

private:
    static constexpr std::int64_t REST = 9;
    static constexpr std::int64_t NEVER = std::numeric_limits<std::int64_t>::max();

    Clock& clock_;
    std::int64_t next_ = 0;
};

}  // namespace vexa
