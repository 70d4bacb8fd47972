#include "report/hover_look.h"

#include "common/guarded.h"
#include "report/flat_combo.h"
#include "ui/window.h"

namespace vexa {
namespace {

constexpr int HOVER_INTERVAL = 150;  // milliseconds

}  // namespace

void HoverLook::start() {
    hoverTimer_ = CTimer::create(application_.platform.timers);
    hoverTimer_->Interval = HOVER_INTERVAL;
    hoverTimer_->Notify = [this] { hoverTimer_Notify(); };
    hoverTimer_->StartTimer();
}

void HoverLook::stop() noexcept {
    if (!hoverTimer_) return;
    attempt([&] { hoverTimer_->StopTimer(); });
    // The timer stays in its slot and a tick may be on its way: neither may reach a closed window.
    hoverTimer_->Notify = nullptr;
    hoverTimer_.reset();
}

void HoverLook::hoverTimer_Notify() noexcept {
    attempt([&] { draw(fontnames_); });
    attempt([&] { draw(fontsizes_); });
}

void HoverLook::draw(ui::ComboBox& combo) {
    const auto state = hoverState(combo);
    if (!state) return;
    const ui::Rect bounds = combo.bounds();
    combo.draw(flatCombo(*state, {bounds.width, bounds.height}, application_.screen.scrollThumbWidth()));
}

}  // namespace vexa
