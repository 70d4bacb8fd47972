// How others find the stand-in: its class in the registry and its object in the running object table.
#pragma once

#include <windows.h>

#include <objbase.h>

namespace workbench {

/// Writes the class's name and identifier below HKEY_LOCAL_MACHINE\Software\Classes, where the lookup of a
/// running object needs them. False where that is not allowed.
bool registerAddInClass();
void unregisterAddInClass();

/// While it lives and runs, the object can be found by its name.
class RunningObject {
public:
    explicit RunningObject(IUnknown& object) : object_(object) {}
    RunningObject(const RunningObject&) = delete;
    RunningObject& operator=(const RunningObject&) = delete;
    ~RunningObject() { stop(); }

    bool start();
    void stop();
    [[nodiscard]] bool running() const { return registration_ != 0; }

private:
    IUnknown& object_;
    DWORD registration_ = 0;
};

}  // namespace workbench
