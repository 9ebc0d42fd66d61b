#include "tests/soak/Memory.h"

#include "tests/program/LiveObjects.h"

#include <QPixmapCache>

#include <malloc.h>
#include <unistd.h>

#include <fstream>
#include <stdexcept>

namespace numbrela::testing {

long ResidentMemory()
{
    QPixmapCache::clear();
    // The names of what it has forgotten go when it tidies up, for which it waits until it has something again.
    QPixmapCache::insert(QStringLiteral("soak"), QPixmap(1, 1));
    LiveObjects::LetCachesTidyUp();
    ::malloc_trim(0);
    std::ifstream statm("/proc/self/statm");
    long total = 0;
    long resident = 0; // pages
    if (!(statm >> total >> resident)) {
        throw std::runtime_error("cannot read /proc/self/statm");
    }
    constexpr long kibibyte = 1024;
    return resident * (::sysconf(_SC_PAGESIZE) / kibibyte);
}

} // namespace numbrela::testing
