#include "tests/soak/Memory.h"

#include <malloc.h>
#include <unistd.h>

#include <cstddef>
#include <fstream>
#include <stdexcept>

#if defined(SANITIZED)
// The sanitizer's own, whose header comes with some compilers only.
// NOLINTNEXTLINE(bugprone-reserved-identifier): so it is called
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#endif

namespace numbrela::testing {

namespace {

constexpr long kibibyte = 1024;

} // namespace

long HeldMemory()
{
#if defined(SANITIZED)
    return static_cast<long>(__sanitizer_get_current_allocated_bytes()) / kibibyte;
#else
    ::malloc_trim(0);
    std::ifstream statm("/proc/self/statm");
    long total = 0;
    long resident = 0; // pages
    if (!(statm >> total >> resident)) {
        throw std::runtime_error("cannot read /proc/self/statm");
    }
    return resident * (::sysconf(_SC_PAGESIZE) / kibibyte);
#endif
}

} // namespace numbrela::testing
