#include "common/core/TimeOfDay.h"

#include <algorithm>
#include <chrono>
#include <ctime>

namespace numbrela {

TimeOfDay SystemClock::Now() const
{
    const auto now = std::chrono::system_clock::now();
    const auto wholeSeconds = std::chrono::floor<std::chrono::seconds>(now);
    const std::time_t time = std::chrono::system_clock::to_time_t(wholeSeconds);
    const double fraction = std::chrono::duration<double>(now - wholeSeconds).count();

    const std::tm local = *std::localtime(&time); // in a buffer of its own, which one thread does not contend for
    const int second = std::min(local.tm_sec, 59); // a leap second is the last second of its minute
    return { local.tm_hour, local.tm_min, second, local.tm_hour * 3600.0 + local.tm_min * 60.0 + second + fraction };
}

} // namespace numbrela
