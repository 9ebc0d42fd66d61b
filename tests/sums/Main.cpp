#include "tests/sums/Activities.h"

#include "tests/support/Arguments.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
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
    std::int64_t Exercises = 1000; // of each activity
    std::int64_t Seed = 1;
    std::vector<std::string> Names; // of activities; empty: all
};

Arguments readArguments(int argc, char** argv)
{
    Arguments arguments;
    for (int i = 1; i < argc; ++i) {
        if (!TakeNumber(argc, argv, i, { { "--exercises", arguments.Exercises }, { "--seed", arguments.Seed } })) {
            arguments.Names.emplace_back(argv[i]);
        }
    }
    return arguments;
}

bool isActivity(const std::string& name)
{
    return std::any_of(
        activities.begin(), activities.end(), [&name](const Activity& activity) { return name == activity.Name; });
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
    if (!std::all_of(arguments.Names.begin(), arguments.Names.end(), isActivity)) {
        std::fprintf(stderr, "usage: numbrela_sums [--exercises N] [--seed N] [activity...]\n");
        return 2;
    }
    std::printf("--exercises %lld --seed %lld\n", static_cast<long long>(arguments.Exercises),
        static_cast<long long>(arguments.Seed));
    bool allPass = true;
    for (const Activity& activity : activities) {
        if (arguments.Names.empty()
            || std::find(arguments.Names.begin(), arguments.Names.end(), activity.Name) != arguments.Names.end()) {
            allPass = passes(activity, arguments) && allPass;
        }
    }
    return allPass ? EXIT_SUCCESS : EXIT_FAILURE;
}
