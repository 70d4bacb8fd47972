// Signs of life of a fill that takes long.
#pragma once

#include <cstdint>

#include "common/application.h"
#include "kb/status_line.h"
#include "ui/grid.h"

namespace vexa {

/// Lasts while the list is filled. Where that is done at once nothing is seen of it; else the hourglass, the
/// rows that are there and their number. No events run.
class FillProgress {
public:
    FillProgress(Application& application, ui::Grid& rows, StatusLine& status, std::int32_t count);
    FillProgress(const FillProgress&) = delete;
    FillProgress& operator=(const FillProgress&) = delete;
    ~FillProgress();

    /// One more row is there.
    void rowAdded();

private:
    void show();

    Application& application_;
    ui::Grid& rows_;
    StatusLine& status_;
    std::int32_t count_;
    std::wstring textBefore_;
    std::int64_t nextSign_;
    bool shown_ = false;
};

}  // namespace vexa
