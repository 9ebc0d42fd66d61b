#pragma once

#include "tests/support/Arguments.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace numbrela::bench {

// How often a benchmark repeats each measurement; 0: often enough for a steady median. A few rounds only show that
// everything can still be measured.
inline std::int64_t chosenRounds = 0;

inline int Rounds(int steady)
{
    return chosenRounds > 0 ? static_cast<int>(chosenRounds) : steady;
}

// Takes the one option that a benchmark has, --rounds N. Tells what is wrong with anything else.
inline bool TakeOptions(int argc, char** argv)
{
    for (int place = 1; place < argc; ++place) {
        if (!testing::TakeNumber(argc, argv, place, { { "--rounds", chosenRounds } })) {
            std::fprintf(stderr, "Usage: %s [--rounds N]\n", argv[0]);
            return false;
        }
    }
    return true;
}

inline bool allMeasured = true;

// Reports a figure that would not be what its line says: the benchmark goes on, and fails at the end.
inline void Complain(const char* what)
{
    std::printf("%s\n", what);
    allMeasured = false;
}

inline int ExitStatus()
{
    return allMeasured ? EXIT_SUCCESS : EXIT_FAILURE;
}

// The median of some measurements: unlike a mean, it is not moved by a single start that another process happened to
// disturb.
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

// A line of the one table that all benchmarks print: a figure beside that of the plainest thing that does as much.
struct Row {
    const char* What = nullptr;
    const char* Unit = nullptr;
    double Figure = 0;
    double Beside = 0; // the same of the plain thing
    double MostRatio = 0; // aims; 0: none
    double Most = 0;
};

// tools/bench prints the names of the columns.
inline void Print(const Row& row)
{
    if (!(row.Figure > 0 && row.Beside > 0)) {
        Complain("What follows was not measured.");
    }
    std::printf("%-44s %-3s %9.2f %9.2f %7.2f", row.What, row.Unit, row.Figure, row.Beside, row.Figure / row.Beside);
    if (row.MostRatio > 0) {
        std::printf("  %7.2f x  %s", row.MostRatio, row.Figure <= row.MostRatio * row.Beside ? "ok" : "missed");
    } else if (row.Most > 0) {
        std::printf("  %7.0f %-2s %s", row.Most, row.Unit, row.Figure <= row.Most ? "ok" : "missed");
    }
    std::printf("\n");
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
