// The count of everything that keeps the library loaded.
#pragma once

#include <atomic>

namespace win {

/// Keeps the library loaded while it lives. Every object that the library hands out has one.
class ModuleReference {
public:
    ModuleReference() noexcept { add(); }
    ModuleReference(const ModuleReference&) = delete;
    ModuleReference& operator=(const ModuleReference&) = delete;
    ~ModuleReference() { remove(); }

    static void add() noexcept { ++references_; }
    static void remove() noexcept { --references_; }
    [[nodiscard]] static bool none() noexcept { return references_ == 0; }

private:
    static inline std::atomic<long> references_ = 0;
};

}  // namespace win
