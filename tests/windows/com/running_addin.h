// The running object "Tarnwell.OlAddIn.1" of this process, as tests of the built control need it.
#pragma once

#include <functional>

#include "tests/windows/platform/addin_stand_in.h"

namespace tests {

/// Is idle, carries out nothing, keeps no list of its calls, and raises its event on demand. At its end the
/// control must have given back every reference to it.
class RunningAddIn final : public AddInStandIn {
public:
    RunningAddIn();
    RunningAddIn(const RunningAddIn&) = delete;
    RunningAddIn& operator=(const RunningAddIn&) = delete;
    ~RunningAddIn() override;

    /// Runs inside each call of the control, by the method's name.
    std::function<void(const std::string& call)> during;

private:
    HRESULT called(const std::string& operation, const std::string& arguments) override;

    DWORD registration_ = 0;
};

}  // namespace tests
