#include "tests/soak/Memory.h"

#include <malloc.h>
#include <unistd.h>

#include <fstream>
#include <stdexcept>

namespace numbrela::testing {

long HeldMemory()
{
    constexpr long kibibyte = 1024;
    ::malloc_trim(0);
    std::ifstream statm("/proc/self/statm");
    long total = 0;
    long resident = 0; // pages
    if (!(statm >> total >> resident)) {
        throw std::runtime_error("cannot read /proc/self/statm");
    }
    return resident * (::sysconf(_SC_PAGESIZE) / kibibyte);
}

} // namespace numbrela::testing
