// The composer's combos in their flat look, drawn anew at each tick of the hover timer.
#pragma once

#include <memory>

#include "common/CTimer.h"
#include "common/application.h"
#include "ui/controls.h"

namespace vexa {

class HoverLook {
public:
    HoverLook(Application& application, ui::ComboBox& fontnames, ui::ComboBox& fontsizes)
        : application_(application), fontnames_(fontnames), fontsizes_(fontsizes) {}
    HoverLook(const HoverLook&) = delete;
    HoverLook& operator=(const HoverLook&) = delete;
    ~HoverLook() { stop(); }

    void start();
    void stop() noexcept;

private:
    void hoverTimer_Notify() noexcept;
    void draw(ui::ComboBox& combo);

    Application& application_;
    ui::ComboBox& fontnames_;
    ui::ComboBox& fontsizes_;
    std::shared_ptr<CTimer> hoverTimer_;
};

}  // namespace vexa
