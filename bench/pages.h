// Pages of the program on the real machine, in a window nobody sees.
#pragma once

#include <windows.h>

#include <memory>

#include "bench/add_ins.h"
#include "page/ctlPPE.h"
#include "page/ctlPPE.ids.h"
#include "windows/controls/screen.h"
#include "windows/platform/machine.h"

namespace bench {

/// The real date, but nothing takes any time: sleeping does not wait, and no question seems to be slow.
class WakefulClock : public vexa::Clock {
public:
    vexa::LocalTime localTime() override { return real_.localTime(); }
    std::int64_t milliseconds() override { return 0; }
    void sleep(int) override {}

private:
    win::Clock real_;
};

class NoSite : public vexa::PageSite {
public:
    void onStatusChange() override {}
    std::wstring displayName() override { return {}; }
};

/// The program with these in place of the machine's own; they outlive it.
class Pages {
public:
    Pages(std::shared_ptr<vexa::AddIn> addIn, vexa::Clock& clock, vexa::FileSystem& files)
        : locator_(std::move(addIn)), clock_(clock), files_(files) {}
    Pages(const Pages&) = delete;
    Pages& operator=(const Pages&) = delete;

    /// A page that has not started yet.
    [[nodiscard]] std::unique_ptr<vexa::ctlPPE> make() {
        return std::make_unique<vexa::ctlPPE>(application, screen_.createPage(IDD_ctlPPE, host_), site_);
    }

private:
    [[nodiscard]] vexa::Platform ports() {
        const vexa::Platform real = machine_.platform();
        return {real.registry, real.ansi, real.conversions, files_,
                clock_,        locator_,  real.desktop,     real.timers};
    }

    Locator locator_;
    vexa::Clock& clock_;
    vexa::FileSystem& files_;
    win::Machine machine_{locator_};
    win::Screen screen_{GetModuleHandleW(nullptr)};
    NoSite site_;
    HWND host_ =
        CreateWindowExW(0, L"Static", L"", WS_POPUP, 0, 0, 400, 420, nullptr, nullptr, nullptr, nullptr);

public:
    vexa::Application application{ports(), screen_};
};

}  // namespace bench
