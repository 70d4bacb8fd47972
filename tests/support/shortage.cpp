#include "tests/support/shortage.h"

#include <cstdlib>
#include <new>

namespace tests {

long allocationsLeft = -1;
bool shortageIsShort = false;

}  // namespace tests

// These serve the whole test program; of the controls, only the one that is linked into it takes part. They
// are not inlined: the compiler would take the inner calls for a mismatched pair.
[[gnu::noinline]] void* operator new(std::size_t size) {
    if (tests::allocationsLeft == 0) {
        if (tests::shortageIsShort) tests::allocationsLeft = -1;
        throw std::bad_alloc();
    }
    if (tests::allocationsLeft > 0) --tests::allocationsLeft;
    if (void* block = std::malloc(size)) return block;
    throw std::bad_alloc();
}
[[gnu::noinline]] void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return tests::allocationsLeft == 0 ? nullptr : std::malloc(size);
}
[[gnu::noinline]] void operator delete(void* block) noexcept { std::free(block); }
[[gnu::noinline]] void operator delete(void* block, std::size_t) noexcept { std::free(block); }
