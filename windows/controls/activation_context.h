// Themed controls inside a host that has none: the context of the component's own manifest, activated around
// everything that makes windows.
#pragma once

#include <windows.h>

namespace win {

class ActivationContext {
public:
    /// From the manifest that `module` carries as resource 2. Without one, activating does nothing.
    explicit ActivationContext(HMODULE module) noexcept;
    ActivationContext(const ActivationContext&) = delete;
    ActivationContext& operator=(const ActivationContext&) = delete;
    ~ActivationContext();

    [[nodiscard]] HANDLE get() const noexcept { return context_; }

private:
    HANDLE context_;
};

/// Activates a context for the current scope and thread.
class Activation {
public:
    explicit Activation(const ActivationContext& context) noexcept;
    Activation(const Activation&) = delete;
    Activation& operator=(const Activation&) = delete;
    ~Activation();

private:
    ULONG_PTR cookie_ = 0;  // before the flag, whose initialiser fills it
    bool active_;
};

}  // namespace win
