#include "activities/divide/core/WorkingGrid.h"
#include "activities/divide/screen/WorkingGridBox.h"
#include "app/Activities.h"
#include "app/Application.h"
#include "app/Form1.h"
#include "app/ProgramRun.h"
#include "bench/WindowTimes.h"
#include "common/screen/Controls.h"
#include "common/screen/FormWindow.h"

#include <QAccessible>
#include <QLineEdit>
#include <QLoggingCategory>
#include <QTest>

// Prints how long an activity takes to open, and how long a key takes to show where the pupil writes, beside the same
// for a window with nothing in it and for a plain text box of Qt's.

namespace numbrela::bench {

namespace {

constexpr int rows = 24; // of digits that are typed
constexpr int digits = 10; // in a row
constexpr double aimedOpening = 16; // milliseconds: one frame of a screen that shows 60 a second
constexpr double aimedKeyPress = 2; // milliseconds
constexpr double aimedOfferRatio = 1.1; // no slower, as far as this can be measured

QWidget* openPlainTextBox()
{
    QWidget* window = OpenEmptyWindow();
    auto* box = new QLineEdit(window);
    box->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    box->setGeometry(100, 167, 133, 33); // the answer box of Form2
    box->show();
    box->setFocus();
    return window;
}

// Presses and releases a key that writes a 7.
struct SevenKey {
    std::function<void(QWindow& window)> Press;
    std::function<void(QWindow& window)> Release;
};

// Both go the way of a real key, and let the event loop run.
const SevenKey sevenOfKeyboard {
    [](QWindow& window) { QTest::keyPress(&window, Qt::Key_7); },
    [](QWindow& window) { QTest::keyRelease(&window, Qt::Key_7); },
};

QPoint placeOnKeypad(const QWindow& window)
{
    const QWidget* root = QWidget::find(window.winId());
    const auto* key = root->findChild<QWidget*>(QStringLiteral("Tecla(7)"));
    return key->mapTo(root, key->rect().center());
}

const SevenKey sevenOfKeypad {
    [](QWindow& window) { QTest::mousePress(&window, Qt::LeftButton, {}, placeOnKeypad(window)); },
    [](QWindow& window) { QTest::mouseRelease(&window, Qt::LeftButton, {}, placeOnKeypad(window)); },
};

// From the press of a digit key to the picture of the box with the digit.
double timeKeyPress(const QWidget* box, const SevenKey& seven)
{
    QWindow& window = *box->window()->windowHandle();
    const PaintWatch watch;
    const auto start = std::chrono::steady_clock::now();
    seven.Press(window);
    watch.WaitFor(box);
    const double milliseconds = MillisecondsSince(start);
    seven.Release(window);
    return milliseconds;
}

void press(QWidget& window, std::initializer_list<Qt::Key> keys)
{
    for (const Qt::Key key : keys) {
        QTest::keyClick(window.windowHandle(), key);
    }
    QApplication::processEvents();
}

// Ten digits that were typed into a box are taken away again. The caret of an answer has stepped left after each.
void emptyBox(QWidget& window)
{
    press(window, { Qt::Key_End });
    for (int digit = 0; digit < digits; ++digit) {
        press(window, { Qt::Key_Backspace });
    }
}

// On the paper of a division digits are written over one another, from the row below the dividend on.
void goToFirstRow(QWidget& window)
{
    press(window, { Qt::Key_PageUp, Qt::Key_Home, Qt::Key_Down });
}

// Types where the focus is when the window opens: ten digits, and then the same again after `makeRoom`.
std::vector<double> timeKeyPresses(
    const OpenWindow& open, void (*makeRoom)(QWidget& window) = &emptyBox, const SevenKey& seven = sevenOfKeyboard)
{
    const PaintWatch watch;
    QWidget* window = open();
    watch.WaitFor(window);
    QWidget* box = window->focusWidget();
    std::vector<double> times;
    for (int row = 0; row < Rounds(rows); ++row) {
        makeRoom(*window);
        for (int digit = 0; digit < digits; ++digit) {
            times.push_back(timeKeyPress(box, seven));
        }
    }
    const QString written = QAccessible::queryAccessibleInterface(box)->text(QAccessible::Value);
    if (written.count(u'7') < digits) {
        Complain("The digits were not written: what follows is not what it says.");
    }
    CloseAndDestroy(window);
    return times;
}

struct OpenedActivity {
    std::size_t Index; // in the main menu
    const char* Opening;
};

// "La compra" is not among them: it needs a catalogue, and has a benchmark of its own.
constexpr std::array<OpenedActivity, 7> openedActivities { {
    { 0, "open Sumas" },
    { 1, "open Restas" },
    { 2, "open Multiplicaciones" },
    { 3, "open Divisiones" },
    { 4, "open Mayor y menor" },
    { 5, "open Potencias de diez" },
    { 6, "open Colocar y sumar" },
} };

OpenWindow activity(std::size_t index, ProgramRun& run)
{
    return [index, &run] {
        FormWindow* form = activities[index].Window(run);
        form->Show(true);
        return form;
    };
}

// The same with its keypad on the screen.
OpenWindow withKeypad(std::size_t index, ProgramRun& run)
{
    return [index, &run] {
        FormWindow* form = activities[index].Window(run);
        form->Choices().KeypadShown = true;
        form->Show(true);
        return form;
    };
}

// As large as Form2 or as Form5, which has a paper, with about as much in it.
class Offering : public FormWindow {
public:
    Offering(bool hasPaper, bool offersKeypad)
        : FormWindow(QStringLiteral("Offering"), QStringLiteral("SUMAS"),
            hasPaper ? TwipsSize { 6000, 8505 } : TwipsSize { 4875, 7695 }, {})
    {
        AddMenu(QStringLiteral("MnuOpc"), QStringLiteral("&Opciones"));
        for (int row = 0; row < 6; ++row) {
            AddTextBox(Area(), QStringLiteral("Box"), { 2800, 500 + row * 500, 2000, 495 }, {});
            AddButton(
                Area(), QStringLiteral("Button"), QStringLiteral("&Hecho"), { 2800, 3600 + row * 500, 2000, 495 }, {});
        }
        if (hasPaper) {
            grid_.LineWidth = columns;
            grid_.Begin("116937035,08");
            Area().Place(new WorkingGridBox(grid_, this),
                { 100, 500, columns * WorkingGridBox::CellWidth, WorkingGridBox::Height }, {});
        }
        if (offersKeypad) {
            OfferKeypad(hasPaper ? KeypadKeys::WithBlankAndArrows : KeypadKeys::WithBlank);
        }
    }

private:
    static constexpr int columns = 15;
    bool commaShift_ = false;
    WorkingGrid grid_ { commaShift_ };
};

OpenWindow offering(bool paper, bool keypad)
{
    return [paper, keypad] {
        auto* form = new Offering(paper, keypad);
        form->Show(true);
        return form;
    };
}

// The two differ by less than what else the machine does meanwhile: it only adds to what an opening takes at least, so
// they are opened in turn, and the shortest time of each counts.
void compareOfferings(const char* what, bool paper)
{
    constexpr int turns = 300;
    double with = TimeOpening(offering(paper, true));
    double without = TimeOpening(offering(paper, false));
    for (int turn = 1; turn < Rounds(turns); ++turn) {
        with = std::min(with, TimeOpening(offering(paper, true)));
        without = std::min(without, TimeOpening(offering(paper, false)));
    }
    Print({ what, "ms", with, without, aimedOfferRatio, 0 });
}

void run()
{
    QApplication::setCursorFlashTime(0); // a caret that blinks is painted too, and is not what we wait for
    ProgramRun run;

    // The main menu stands behind an activity that a pupil opens, and has woken Qt's style and fonts.
    const PaintWatch watch;
    Form1 menu(run);
    menu.show();
    watch.WaitFor(&menu);

    // The activities go first, so that their first time is the one that a pupil waits, with whatever is loaded late.
    std::vector<std::vector<double>> opened;
    opened.reserve(openedActivities.size());
    for (const OpenedActivity& each : openedActivities) {
        opened.push_back(TimeOpenings(activity(each.Index, run)));
    }
    const double empty = Median(TimeOpenings(OpenEmptyWindow));
    Print({ "open Sumas for the first time", "ms", opened[0].front(), empty, 0, aimedOpening });
    for (const OpenedActivity& each : openedActivities) {
        Print({ each.Opening, "ms", Median(opened[each.Index]), empty, 0, aimedOpening });
    }

    Print(
        { "open Divisiones with its keypad", "ms", Median(TimeOpenings(withKeypad(3, run))), empty, 0, aimedOpening });
    compareOfferings("open a window with the offer of a keypad", false);
    compareOfferings("open one with a paper and that offer", true);

    const double sums = Median(timeKeyPresses(activity(0, run)));
    const double product = Median(timeKeyPresses(activity(2, run)));
    const double onKeypad = Median(timeKeyPresses(withKeypad(0, run), &emptyBox, sevenOfKeypad));
    const double grid = Median(timeKeyPresses(activity(3, run), &goToFirstRow));
    const double gridOnKeypad = Median(timeKeyPresses(withKeypad(3, run), &goToFirstRow, sevenOfKeypad));
    const double plain = Median(timeKeyPresses(openPlainTextBox));
    Print({ "type a digit in Sumas", "ms", sums, plain, 0, aimedKeyPress });
    Print({ "type a digit on the keypad in Sumas", "ms", onKeypad, plain, 0, aimedKeyPress });
    Print({ "type a digit in Multiplicaciones", "ms", product, plain, 0, aimedKeyPress });
    Print({ "type a digit on the paper of Divisiones", "ms", grid, plain, 0, aimedKeyPress });
    Print({ "type a digit on the keypad in Divisiones", "ms", gridOnKeypad, plain, 0, aimedKeyPress });
}

} // namespace

} // namespace numbrela::bench

int main(int argc, char** argv)
{
    numbrela::bench::ChoosePlatform();
    // The platform without a display warns of every window, which is no news here.
    QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false"));
    numbrela::Application application(argc, argv);
    if (!numbrela::bench::TakeOptions(argc, argv)) {
        return 2;
    }
    numbrela::bench::run();
    return numbrela::bench::ExitStatus();
}
