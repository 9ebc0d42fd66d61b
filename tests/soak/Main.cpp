#include "activities/multiply/screen/Dialog.h"
#include "activities/shopping/tests/TemporaryFolder.h"
#include "app/Application.h"
#include "tests/program/LiveObjects.h"
#include "tests/program/Program.h"
#include "tests/program/ShippedCatalogue.h"
#include "tests/soak/Exercises.h"
#include "tests/soak/Memory.h"
#include "tests/support/Arguments.h"
#include "tests/support/Boxes.h"
#include "tests/support/Harness.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>

// Opens and closes each window, and does exercises in it, many times over: nothing may be left behind, and memory must
// not grow.

using namespace numbrela::testing;

namespace {

struct Order {
    std::int64_t Openings = 1000; // of each window
    std::int64_t Exercises = 100000; // in all windows together
    std::int64_t Memory = 0; // KiB: the limit of the growth; 0: not checked
};

bool isLittle(long drift, const Order& order)
{
    return order.Memory == 0 || drift < order.Memory;
}

// Does the same thing many times, after a warm-up in which Qt makes everything that it makes once and keeps. Prints
// what has grown, adds the growth of the memory to the total, and returns whether nothing was left behind and memory
// grew little enough.
bool isSteady(const LiveObjects& objects, const std::string& what, std::int64_t times, const Order& order,
    long& driftOfAll, const std::function<void(int)>& doOnce)
{
    const std::int64_t warmUp = std::max<std::int64_t>(times / 10, 10);
    int number = 0;
    while (number < warmUp) {
        doOnce(number++);
    }
    const Census before = objects.Everything();
    const long memoryBefore = HeldMemory();
    while (number < warmUp + times) {
        doOnce(number++);
    }
    const long drift = HeldMemory() - memoryBefore;
    driftOfAll += drift;
    const std::string left = Growth(before, objects.Everything());

    std::printf("%-24s %6lld times", what.c_str(), static_cast<long long>(times));
    if (order.Memory > 0) {
        std::printf(", %+6ld KiB of %ld%s", drift, memoryBefore, isLittle(drift, order) ? "" : " TOO MUCH");
    }
    std::printf("%s%s\n", left.empty() ? "" : ", LEFT BEHIND: ", left.c_str());
    std::fflush(stdout);
    return left.empty() && isLittle(drift, order);
}

const Route& routeTo(const std::string& window)
{
    return *std::find_if(
        routes.begin(), routes.end(), [&window](const Route& route) { return route.Window == window; });
}

void open(Program& program, const Route& route, int number)
{
    constexpr int secondsOfADay = 24 * 60 * 60;
    program.SetTime(number * 61 % secondsOfADay); // another exercise each time
    if (std::string(route.Window) == "Form1") {
        program.StartAgain();
    } else {
        program.Open(route);
    }
}

void openAndClose(Program& program, const Route& route, int number)
{
    const bool isDialog = std::string(route.Window) == "Dialog";
    if (isDialog) {
        ExpectDialog([](QDialog& dialog) { dynamic_cast<numbrela::Dialog&>(dialog).reject(); });
    }
    open(program, route, number);
    EXPECT_EQ(PendingBoxes(), 0);
    EXPECT_TRUE(isDialog || Program::Window(QString::fromLatin1(route.Window)) != nullptr) << route.Window;
    program.CloseAll();
}

// The score of an exercise has room for 999, so the window is opened again in time.
void practise(Program& program, const Practice& practice, int number)
{
    constexpr int exercisesOfAVisit = 500;
    if (number % exercisesOfAVisit == 0) {
        program.CloseAll();
        open(program, routeTo(practice.Window), number);
    }
    practice.DoExercise(*Program::Window(QString::fromLatin1(practice.Window)), number);
}

bool soak(Program& program, const LiveObjects& objects, const Order& order)
{
    bool steady = true;
    long drift = 0; // a little growth in each may be too much in all
    for (const Route& route : routes) {
        steady &= isSteady(objects, "open " + std::string(route.Window), order.Openings, order, drift,
            [&](int number) { openAndClose(program, route, number); });
    }
    for (const Practice& practice : practices) {
        steady &= isSteady(objects, "exercise " + std::string(practice.Window),
            order.Exercises / static_cast<std::int64_t>(practices.size()), order, drift,
            [&](int number) { practise(program, practice, number); });
        program.CloseAll();
    }
    if (order.Memory > 0) {
        std::printf("%-39s%+6ld KiB%s\n", "all together", drift, isLittle(drift, order) ? "" : " TOO MUCH");
    }
    return steady && isLittle(drift, order);
}

int usage()
{
    std::fprintf(stderr, "usage: numbrela_soak [--openings N] [--exercises N] [--memory KIB]\n");
    return 2;
}

} // namespace

int main(int argc, char** argv)
{
    Order order;
    for (int i = 1; i < argc; ++i) {
        if (!TakeNumber(argc, argv, i,
                { { "--openings", order.Openings }, { "--exercises", order.Exercises },
                    { "--memory", order.Memory } })) {
            return usage();
        }
    }
    if (order.Exercises < static_cast<std::int64_t>(practices.size())) {
        return usage();
    }
    const TemporaryFolder folder;
    SaveShippedCatalogue(folder / "productos.dat");
    const HeadlessEnvironment environment;
    AbortOnWarnings();
    numbrela::Application application(argc, argv);
    WatchForBoxes();
    const LiveObjects objects;
    Program program(folder / "productos.dat");
    const bool steady = soak(program, objects, order);
    return steady && !::testing::UnitTest::GetInstance()->Failed() ? EXIT_SUCCESS : EXIT_FAILURE;
}
