#include "activities/shopping/tests/TemporaryFolder.h"
#include "app/Application.h"
#include "tests/monkey/Keeper.h"
#include "tests/monkey/Monkey.h"
#include "tests/program/ShippedCatalogue.h"
#include "tests/support/Arguments.h"
#include "tests/support/Harness.h"

#include <QHashSeed>
#include <QStyleHints>

#include <cstdio>
#include <cstdlib>
#include <string>

using namespace numbrela::testing;

namespace {

// What Qt would otherwise make different from run to run.
void leaveNothingToChance()
{
    QHashSeed::setDeterministicGlobalSeed();
    QApplication::setCursorFlashTime(0);
    QApplication::setEffectEnabled(Qt::UI_General, false);
    QGuiApplication::styleHints()->setKeyboardInputInterval(-1); // each letter begins the search in a list again
}

bool play(const Order& order, Progress& progress)
{
    qputenv("QT_NO_GLIB", "1"); // whose event loop sorts what is due in its own way
    const HeadlessEnvironment environment;
    int argc = 1;
    std::string name = "numbrela_monkey";
    std::array<char*, 2> argv { name.data(), nullptr };
    AbortOnWarnings();
    numbrela::Application application(argc, argv.data());
    leaveNothingToChance();
    return Monkey(order, progress).Run();
}

int usage()
{
    std::fprintf(stderr, "usage: numbrela_monkey [--seed N] [--events N] [--window NAME] [--log]\n");
    return 2;
}

} // namespace

// Plays with each window, or the one that is named.
int main(int argc, char** argv)
{
    Order order;
    std::string window;
    for (int i = 1; i < argc; ++i) {
        const std::string option = argv[i];
        if (option == "--log") {
            order.Log = true;
        } else if (option == "--window" && i + 1 < argc) {
            window = argv[++i];
        } else if (!TakeNumber(argc, argv, i, { { "--seed", order.Seed }, { "--events", order.Events } })) {
            return usage();
        }
    }
    std::printf("seed %lld\n", static_cast<long long>(order.Seed));
    int played = 0;
    bool good = true;
    for (const Route& route : routes) {
        if (window.empty() || window == route.Window) {
            const TemporaryFolder folder;
            order.Window = route;
            order.Catalogue = folder / "productos.dat";
            SaveShippedCatalogue(order.Catalogue);
            good = KeepWatch(order, play) && good;
            ++played;
        }
    }
    return played == 0 ? usage() : good ? EXIT_SUCCESS : EXIT_FAILURE;
}
