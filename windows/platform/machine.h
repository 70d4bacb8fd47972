// The machine that the product runs on: all ports on the Windows API.
#pragma once

#include "windows/platform/conversions.h"
#include "windows/platform/desktop.h"
#include "windows/platform/files.h"
#include "windows/platform/registry.h"

namespace win {

class Machine {
public:
    /// `addIns` outlives the machine.
    explicit Machine(vexa::AddInLocator& addIns) : addIns_(addIns) {}

    /// Valid while the machine lives.
    [[nodiscard]] vexa::Platform platform() {
        return {registry_, ansi_, conversions_, files_, clock_, addIns_, desktop_, timers_};
    }

private:
    vexa::AddInLocator& addIns_;
    Registry registry_;
    AnsiCodec ansi_;
    Conversions conversions_;
    FileSystem files_;
    Clock clock_;
    Desktop desktop_;
    SystemTimers timers_;
};

}  // namespace win
