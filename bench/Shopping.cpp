#include "activities/shopping/screen/Form7.h"
#include "activities/shopping/screen/ListBox.h"
#include "bench/Bench.h"
#include "common/core/TimeOfDay.h"
#include "common/screen/CommandButton.h"
#include "common/screen/Look.h"

#include <QApplication>
#include <QLoggingCategory>
#include <QTemporaryDir>

// Prints how long it takes to go into a shop with thousands of products, from the press of its button to the shelf on
// the screen.

namespace numbrela::bench {

namespace {

constexpr int products = 3000;
constexpr int visits = 40;
constexpr double aimedVisit = 50; // milliseconds

ProductTable largeCatalogue()
{
    ProductTable table { Product() };
    for (int index = 0; index < products; ++index) {
        const std::string name = "Un producto del número " + std::to_string(index * 7919 % products);
        AddProduct(table, { std::string_view(name), 1.25F, std::string_view("Supermercado") });
    }
    return table;
}

double timeVisit(Form7& form)
{
    const auto start = std::chrono::steady_clock::now();
    form.CBTienda.back()->click();
    form.repaint();
    form.LIDisponibles->repaint();
    QApplication::processEvents();
    return MillisecondsSince(start);
}

void run(const char* platform)
{
    const QTemporaryDir folder;
    const std::filesystem::path path = folder.filePath(QStringLiteral("productos.dat")).toStdU16String();
    SaveCatalogue(path, largeCatalogue());
    const SystemClock clock;
    Form7 form(clock, path);
    form.show();
    QApplication::processEvents();

    std::vector<double> times;
    for (int visit = 0; visit < visits; ++visit) {
        times.push_back(timeVisit(form));
        form.CbContinuar->click(); // out again, with nothing in the basket
        QApplication::processEvents();
    }
    std::printf(
        "Going into a shop with %d products, %d times, on %s\n\n", form.LIDisponibles->count(), visits, platform);
    std::printf("%-26s %7s %8s %5s\n", "measured, ms", "first", "median", "aim");
    std::printf("%-26s %7.2f %8.2f %5.0f  %s\n", "go into a shop", times.front(), Median(times), aimedVisit,
        OkOrMissed(times.front(), aimedVisit));
}

} // namespace

} // namespace numbrela::bench

int main(int argc, char** argv)
{
    const char* platform = numbrela::bench::ChoosePlatform();
    QLoggingCategory::setFilterRules(QStringLiteral("qt.qpa.*=false"));
    QApplication application(argc, argv);
    numbrela::ApplyLook(application);
    numbrela::bench::run(platform);
    return 0;
}
