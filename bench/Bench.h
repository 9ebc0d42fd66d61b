#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace numbrela::bench {

// The middle one of some measurements: a start that some other process happened to disturb leaves it where it is, as it
// would not a mean.
inline double Median(std::vector<double> measured)
{
    if (measured.empty()) {
        return 0;
    }
    const auto middle = measured.begin() + static_cast<std::ptrdiff_t>(measured.size() / 2);
    std::nth_element(measured.begin(), middle, measured.end());
    return *middle;
}

inline double MillisecondsSince(std::chrono::steady_clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

inline const char* OkOrMissed(double measured, double aim)
{
    return measured <= aim ? "ok" : "missed";
}

// Windows are drawn where the person at the machine sees them, and in memory where there is no display. Whoever sets
// QT_QPA_PLATFORM has decided already.
inline const char* ChoosePlatform()
{
    constexpr int keepWhatIsSet = 0;
    const auto isSet = [](const char* name) {
        const char* value = std::getenv(name);
        return value != nullptr && *value != '\0';
    };
    if (!isSet("QT_QPA_PLATFORM") && !isSet("DISPLAY") && !isSet("WAYLAND_DISPLAY")) {
        setenv("QT_QPA_PLATFORM", "offscreen", keepWhatIsSet);
    }
    return isSet("QT_QPA_PLATFORM") ? std::getenv("QT_QPA_PLATFORM") : "the display";
}

} // namespace numbrela::bench
