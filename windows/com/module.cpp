#include "windows/com/module.h"

#include <atomic>

namespace com {
namespace {

std::atomic<long> references = 0;

}  // namespace

void ModuleReference::add() noexcept { ++references; }
void ModuleReference::remove() noexcept { --references; }
bool ModuleReference::none() noexcept { return references == 0; }

}  // namespace com
