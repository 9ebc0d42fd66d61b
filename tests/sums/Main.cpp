#include "tests/sums/Activities.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace {

using namespace numbrela::testing;

struct Activity {
    const char* Name;
    void (*Try)(numbrela::RandomSource& random, Tally& tally);
};

constexpr std::array<Activity, 8> activities { {
    { "addition", TryAddition },
    { "subtraction", TrySubtraction },
    { "multiplication", TryMultiplication },
    { "division", TryDivision },
    { "comparison", TryComparison },
    { "powers", TryPowersOfTen },
    { "placeadd", TryPlaceAndAdd },
    { "shopping", TryShopping },
} };

struct Arguments {
    long Exercises = 1000; // of each activity
    long Seed = 1;
    std::vector<std::string> Names; // of activities; empty: all
};

Arguments readArguments(int argc, char** argv)
{
    Arguments arguments;
    for (int i = 1; i < argc; ++i) {
        const bool hasValue = i + 1 < argc;
        if (std::strcmp(argv[i], "--exercises") == 0 && hasValue) {
            arguments.Exercises = std::atol(argv[++i]);
        } else if (std::strcmp(argv[i], "--seed") == 0 && hasValue) {
            arguments.Seed = std::atol(argv[++i]);
        } else {
            arguments.Names.emplace_back(argv[i]);
        }
    }
    return arguments;
}

bool passes(const Activity& activity, const Arguments& arguments)
{
    numbrela::SeededRandom random(static_cast<double>(arguments.Seed));
    Tally tally(activity.Name);
    while (tally.Exercises() < arguments.Exercises) {
        activity.Try(random, tally);
    }
    tally.Print();
    return tally.Differences() == 0;
}

} // namespace

int main(int argc, char** argv)
{
    const Arguments arguments = readArguments(argc, argv);
    std::printf("--exercises %ld --seed %ld\n", arguments.Exercises, arguments.Seed);
    int tried = 0;
    bool allPass = true;
    for (const Activity& activity : activities) {
        if (arguments.Names.empty()
            || std::find(arguments.Names.begin(), arguments.Names.end(), activity.Name) != arguments.Names.end()) {
            allPass = passes(activity, arguments) && allPass;
            ++tried;
        }
    }
    const bool allKnown
        = tried == static_cast<int>(arguments.Names.empty() ? activities.size() : arguments.Names.size());
    return allPass && allKnown && arguments.Exercises > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
