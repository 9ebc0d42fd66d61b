#include "tests/soak/Memory.h"

#include <cstddef>

// The sanitizer's own, whose header comes with some compilers only.
// NOLINTNEXTLINE(bugprone-reserved-identifier): so it is called
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();

namespace numbrela::testing {

long HeldMemory()
{
    constexpr long kibibyte = 1024;
    return static_cast<long>(__sanitizer_get_current_allocated_bytes()) / kibibyte;
}

} // namespace numbrela::testing
