#include "windows/platform/module_reference.h"

#include <atomic>

namespace win {
namespace {

std::atomic<long> references = 0;

}  // namespace

void ModuleReference::add() noexcept { ++references; }
void ModuleReference::remove() noexcept { --references; }
bool ModuleReference::none() noexcept { return references == 0; }

}  // namespace win
