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

    std::tm local {};
#ifdef _WIN32
    localtime_s(&local, &time);
#else
    localtime_r(&time, &local);
#endif
    const int second = std::min(local.tm_sec, 59); // a leap second is the last second of its minute
    return { local.tm_hour, local.tm_min, second, local.tm_hour * 3600.0 + local.tm_min * 60.0 + second + fraction };
}

} // namespace numbrela
