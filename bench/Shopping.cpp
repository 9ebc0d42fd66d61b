#include "activities/shopping/screen/DLGProductos.h"
#include "activities/shopping/screen/Form7.h"
#include "activities/shopping/screen/Handover.h"
#include "activities/shopping/screen/ListBox.h"
#include "bench/WindowTimes.h"
#include "common/screen/CommandButton.h"
#include "common/screen/Look.h"

#include <QInputDialog>
#include <QLoggingCategory>
#include <QTemporaryDir>
#include <QTimer>

#include <fstream>

#include <fcntl.h>
#include <unistd.h>

// Prints how long a catalogue as large as can be takes to be read and saved, beside the same bytes read and written
// plainly, and how long the windows that show products take to open and to show a change.

namespace numbrela::bench {

namespace {

constexpr int rounds = 40;
constexpr int shelfProducts = 3000;
constexpr const char* changedName = "Otro nombre ";
constexpr double aimedFileRatio = 2;
constexpr double aimedEditor = 150; // milliseconds
constexpr double aimedChange = 100;
constexpr double aimedVisit = 150;
constexpr double aimedOpening = 16;

// A catalogue of one shop. The last products have names too long for a line of its shelf.
ProductTable catalogueOf(int products, int longNames = 0)
{
    ProductTable table { Product() };
    for (int index = 0; index < products; ++index) {
        std::string name = "Un producto del número " + std::to_string(index * 7919 % products);
        if (index >= products - longNames) {
            name += " con un nombre que en el estante no cabe en una sola línea";
        }
        AddProduct(table, { std::string_view(name), 1.25F, std::string_view("Supermercado") });
    }
    return table;
}

std::filesystem::path in(const QTemporaryDir& folder, const char* name)
{
    return folder.filePath(QLatin1String(name)).toStdU16String();
}

// The median of many rounds of two actions that take turns, in milliseconds.
template <typename First, typename Second>
std::pair<double, double> mediansInTurn(First first, Second second)
{
    const auto time = [](auto& action) {
        const auto start = std::chrono::steady_clock::now();
        action();
        return MillisecondsSince(start);
    };
    std::vector<double> firstTimes;
    std::vector<double> secondTimes;
    for (int round = 0; round < Rounds(rounds); ++round) {
        firstTimes.push_back(time(first));
        secondTimes.push_back(time(second));
    }
    return { Median(firstTimes), Median(secondTimes) };
}

std::string readPlainly(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    std::string bytes(std::filesystem::file_size(path), '\0');
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return bytes;
}

// Flushes them to the disk, as anyone must who wants to find them again.
void writePlainly(const std::filesystem::path& path, const std::string& bytes)
{
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (::write(file, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()) || ::fsync(file) != 0) {
        Complain("The bytes could not be written.");
    }
    ::close(file);
}

void measureFile()
{
    const QTemporaryDir folder;
    const std::filesystem::path catalogue = in(folder, "productos.dat");
    const std::filesystem::path plain = in(folder, "plain");
    const ProductTable table = catalogueOf(MostProducts);
    SaveCatalogue(catalogue, table);
    const std::string bytes = readPlainly(catalogue);

    const auto [load, read] = mediansInTurn([&] { LoadCatalogue(catalogue); }, [&] { readPlainly(catalogue); });
    const auto [save, write]
        = mediansInTurn([&] { SaveCatalogue(catalogue, table); }, [&] { writePlainly(plain, bytes); });
    Print({ "read a catalogue of 32.767 products", "ms", load, read, aimedFileRatio });
    Print({ "save it, onto the disk", "ms", save, write, aimedFileRatio });
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

// Goes into a shop with all products, of which so many have long names.
void measureVisits(const Clock& clock, const char* caption, int longNames, double emptyWindow)
{
    const QTemporaryDir folder;
    Shop shop { in(folder, "productos.dat") };
    SaveCatalogue(shop.Catalogue, catalogueOf(shelfProducts, longNames));
    Form7 form(clock, shop);
    form.show();
    QApplication::processEvents();
    std::vector<double> times;
    for (int visit = 0; visit < Rounds(rounds); ++visit) {
        times.push_back(timeVisit(form));
        if (form.LIDisponibles->LineCount() != shelfProducts) {
            Complain("The shelf does not hold all products: what follows is not what it says.");
        }
        form.CbContinuar->click(); // out again, with nothing in the basket
        QApplication::processEvents();
    }
    Print({ caption, "ms", Median(times), emptyWindow, 0, aimedVisit });
}

void measureShop(const Clock& clock, double emptyWindow)
{
    const QTemporaryDir folder;
    Shop shop { in(folder, "productos.dat") };
    SaveCatalogue(shop.Catalogue, catalogueOf(shelfProducts));
    const std::vector<double> opened = TimeOpenings([&] {
        auto* form = new Form7(clock, shop);
        form->Show(true);
        return form;
    });
    Print({ "open La compra, 3.000 products", "ms", Median(opened), emptyWindow, 0, aimedOpening });
    measureVisits(clock, "go into a shop with all of them", 0, emptyWindow);
    measureVisits(clock, "go in, one of the names is long", 1, emptyWindow);
    measureVisits(clock, "go in, all of the names are long", shelfProducts, emptyWindow);
}

// Types the next answer into each input box that opens, and remembers when the last one was left.
class Answers {
public:
    explicit Answers(QStringList answers)
        : answers_(std::move(answers))
    {
        QObject::connect(&timer_, &QTimer::timeout, [this] { answer(); });
        timer_.start(0);
    }

    double MillisecondsSinceLast() const { return MillisecondsSince(last_); }

private:
    void answer()
    {
        auto* box = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
        if (box != nullptr && !answers_.isEmpty()) {
            box->setTextValue(answers_.takeFirst());
            last_ = std::chrono::steady_clock::now();
            box->accept();
        }
    }

    QStringList answers_;
    QTimer timer_;
    std::chrono::steady_clock::time_point last_;
};

void showAll(DLGProductos& editor)
{
    editor.repaint();
    editor.List1->repaint();
    QApplication::processEvents();
}

// What happens to one line, until it is on the screen.
double timeAdding(DLGProductos& editor, int round)
{
    const Answers answers(
        { QStringLiteral("Un producto nuevo %1").arg(round), QStringLiteral("2,5"), QStringLiteral("Panadería") });
    editor.CBAdd->click();
    showAll(editor);
    return answers.MillisecondsSinceLast();
}

double timeChanging(DLGProductos& editor, int round)
{
    const Answers answers({ QStringLiteral("Kiosko"), QLatin1String(changedName) + QString::number(round), QString() });
    editor.CBModif->click();
    showAll(editor);
    return answers.MillisecondsSinceLast();
}

double timeDeleting(DLGProductos& editor)
{
    const auto start = std::chrono::steady_clock::now();
    editor.CBElim->click();
    showAll(editor);
    return MillisecondsSince(start);
}

void measureEditorOpening(const Clock& clock, double emptyWindow)
{
    const QTemporaryDir folder;
    Shop shop { in(folder, "productos.dat") };
    SaveCatalogue(shop.Catalogue, catalogueOf(MostProducts));
    std::vector<double> openings;
    for (int round = 0; round < Rounds(rounds); ++round) {
        const PaintWatch watch;
        const auto start = std::chrono::steady_clock::now();
        DLGProductos editor(clock, shop);
        editor.show();
        watch.WaitFor(&editor);
        openings.push_back(MillisecondsSince(start));
        if (editor.List1->LineCount() != MostProducts) {
            Complain("The editor does not show all products: what follows is not what it says.");
        }
    }
    Print({ "open the editor of 32.767 products", "ms", Median(openings), emptyWindow, 0, aimedEditor });
}

// As many lines as before, after as many were added as deleted, and changed ones among them.
bool showsChangedProducts(const QAbstractItemModel& lines, int countBefore)
{
    return lines.rowCount() == countBefore
        && !lines.match(lines.index(0, 0), Qt::DisplayRole, QLatin1String(changedName), 1, Qt::MatchContains).isEmpty();
}

// In a catalogue with room for the one product that is added and deleted again.
void measureEditorChanges(const Clock& clock, double emptyWindow)
{
    const QTemporaryDir folder;
    Shop shop { in(folder, "productos.dat") };
    SaveCatalogue(shop.Catalogue, catalogueOf(MostProducts - 1));
    DLGProductos editor(clock, shop);
    editor.show();
    QApplication::processEvents();
    const int lineCount = editor.List1->LineCount();
    std::vector<double> added;
    std::vector<double> changed;
    std::vector<double> deleted;
    for (int round = 0; round < Rounds(rounds); ++round) {
        added.push_back(timeAdding(editor, round)); // and leaves the new line selected
        changed.push_back(timeChanging(editor, round));
        // Not one of those that were changed, which stand in front.
        editor.List1->SelectLine((round + 1) * 700 % lineCount);
        deleted.push_back(timeDeleting(editor));
    }
    if (!showsChangedProducts(*editor.List1->model(), lineCount)) {
        Complain("The products were not changed: what follows is not what it says.");
    }
    Print({ "add one", "ms", Median(added), emptyWindow, 0, aimedChange });
    Print({ "change one", "ms", Median(changed), emptyWindow, 0, aimedChange });
    Print({ "delete one", "ms", Median(deleted), emptyWindow, 0, aimedChange });
}

} // namespace

} // namespace numbrela::bench

int main(int argc, char** argv)
{
    numbrela::bench::ChoosePlatform();
    // The platform without a display warns of every window, which is no news here.
    QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false\nqt.qpa.*=false"));
    QApplication application(argc, argv);
    if (!numbrela::bench::TakeOptions(argc, argv)) {
        return 2;
    }
    numbrela::ApplyLook(application);
    const numbrela::SystemClock clock;
    try {
        numbrela::bench::measureFile();
        const double empty = numbrela::bench::Median(numbrela::bench::TimeOpenings(numbrela::bench::OpenEmptyWindow));
        numbrela::bench::measureShop(clock, empty);
        numbrela::bench::measureEditorOpening(clock, empty);
        numbrela::bench::measureEditorChanges(clock, empty);
    } catch (const std::exception& error) { // a catalogue cannot be written
        numbrela::bench::Complain(error.what());
    }
    return numbrela::bench::ExitStatus();
}
