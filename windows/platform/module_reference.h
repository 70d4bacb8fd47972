// The count of everything that keeps the library loaded.
#pragma once

namespace win {

/// Keeps the library loaded while it lives. Every object that the library hands out has one.
class ModuleReference {
public:
    ModuleReference() noexcept { add(); }
    ModuleReference(const ModuleReference&) = delete;
    ModuleReference& operator=(const ModuleReference&) = delete;
    ~ModuleReference() { remove(); }

    static void add() noexcept;
    static void remove() noexcept;
    [[nodiscard]] static bool none() noexcept;
};

}  // namespace win
