#include "kb/fill_progress.h"

#include <algorithm>

#include "common/guarded.h"
#include "kb/messages.h"

namespace vexa {
namespace {

// Milliseconds. What is done sooner than the first needs no sign.
constexpr std::int64_t FIRST_SIGN = 50;
constexpr std::int64_t BETWEEN_SIGNS = 250;
/// A sign takes some time itself: after one that took t the next one waits this many t.
constexpr std::int64_t REST = 49;

}  // namespace

FillProgress::FillProgress(Application& application, ui::Grid& rows, StatusLine& status, std::int32_t count)
    : application_(application),
      rows_(rows),
      status_(status),
      count_(count),
      nextSign_(application.platform.clock.milliseconds() + FIRST_SIGN) {}

FillProgress::~FillProgress() {
    if (!shown_) return;
    attempt([&] { status_.show(textBefore_); });
    attempt([&] { application_.SetPointerDefault(); });
}

void FillProgress::rowAdded() {
    Clock& clock = application_.platform.clock;
    const std::int64_t begin = clock.milliseconds();
    if (begin < nextSign_) return;
    attempt([&] { show(); });
    const std::int64_t end = clock.milliseconds();
    nextSign_ = end + std::max(BETWEEN_SIGNS, REST * (end - begin));
}

void FillProgress::show() {
    if (!shown_) {
        shown_ = true;
        textBefore_ = status_.text();
        application_.SetPointerHourglass();
    }
    status_.show(message::fillRuns(rows_.rowCount(), count_));
    rows_.showSoFar();
}

}  // namespace vexa
