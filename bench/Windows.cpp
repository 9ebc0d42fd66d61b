#include "activities/addsub/screen/ColumnForm.h"
#include "app/Application.h"
#include "app/Form1.h"
#include "bench/Bench.h"
#include "common/core/TimeOfDay.h"

#include <QLineEdit>
#include <QLoggingCategory>
#include <QPointer>
#include <QSet>
#include <QTest>

#include <functional>

// Prints how long an activity takes to open, and how long a key takes to show in its answer box, beside the same for a
// window with nothing in it and for a plain text box of the toolkit's.

namespace numbrela::bench {

namespace {

constexpr int openings = 60;
constexpr int keyPresses = 240;
constexpr double aimedOpening = 16; // milliseconds: one frame of a screen that shows 60 a second
constexpr double aimedKeyPress = 2; // milliseconds

// Remembers which widgets have been painted since it was made. It hears of a paint event before the widget does;
// whoever waits for it lets the event loop finish its round, and by then the picture is on the screen.
class PaintWatch : public QObject {
public:
    PaintWatch() { qApp->installEventFilter(this); }

    void WaitFor(const QWidget* widget) const
    {
        while (!painted_.contains(widget)) {
            QApplication::processEvents();
        }
    }

    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) {
            painted_.insert(receiver);
        }
        return false;
    }

private:
    QSet<const QObject*> painted_;
};

// Makes and shows a window, which destroys itself when it is closed.
using OpenWindow = std::function<QWidget*()>;

template <typename Form>
OpenWindow activity(const Clock& clock)
{
    return [&clock] {
        auto* form = new Form(clock);
        form->ShowModally();
        return form;
    };
}

// The yardsticks: a window as large as an activity's, shown as one is, with nothing in it or with one text box.
QWidget* openEmptyWindow()
{
    auto* window = new QWidget;
    window->resize(325, 540); // pixels, about those of Form2
    window->setWindowModality(Qt::ApplicationModal);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->show();
    return window;
}

QWidget* openPlainTextBox()
{
    QWidget* window = openEmptyWindow();
    auto* box = new QLineEdit(window);
    box->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    box->setGeometry(100, 167, 133, 33); // the answer box of Form2
    box->show();
    box->setFocus();
    return window;
}

void closeAndDestroy(QWidget* window)
{
    const QPointer<QWidget> alive = window;
    window->close();
    while (alive) {
        QApplication::processEvents();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // no event loop is here to return to
    }
}

std::vector<double> timeOpenings(const OpenWindow& open)
{
    std::vector<double> times;
    for (int opening = 0; opening < openings; ++opening) {
        const PaintWatch watch;
        const auto start = std::chrono::steady_clock::now();
        QWidget* window = open();
        watch.WaitFor(window);
        times.push_back(MillisecondsSince(start));
        closeAndDestroy(window);
    }
    return times;
}

// From the press of a digit key to the picture of the box with the digit.
double timeKeyPress(const QWidget* box)
{
    QWindow* window = box->window()->windowHandle();
    const PaintWatch watch;
    const auto start = std::chrono::steady_clock::now();
    QTest::keyPress(window, Qt::Key_7); // goes the way of a real key, and lets the event loop run
    watch.WaitFor(box);
    const double milliseconds = MillisecondsSince(start);
    QTest::keyRelease(window, Qt::Key_7);
    return milliseconds;
}

// Types into the box that has the focus when the window opens: fifteen digits, the last of them too many for the width
// of the box, and then the same again from an empty one.
std::vector<double> timeKeyPresses(const OpenWindow& open)
{
    constexpr int digits = 15;
    const PaintWatch watch;
    QWidget* window = open();
    watch.WaitFor(window);
    auto* box = qobject_cast<QLineEdit*>(window->focusWidget());
    std::vector<double> times;
    for (int press = 0; press < keyPresses; ++press) {
        times.push_back(timeKeyPress(box));
        if ((press + 1) % digits == 0) {
            box->clear();
            QApplication::processEvents();
        }
    }
    closeAndDestroy(window);
    return times;
}

struct Line {
    const char* What;
    std::vector<double> Times; // milliseconds
};

void print(const Line& line, double yardstick, double aim)
{
    const double median = Median(line.Times);
    std::printf("%-26s %7.2f %8.2f", line.What, line.Times.front(), median);
    if (yardstick > 0) {
        std::printf(" %6.1f %5.0f  %s", median / yardstick, aim, OkOrMissed(median, aim));
    }
    std::printf("\n");
}

void print(const Line& yardstick, const std::vector<Line>& activities, double aim)
{
    print(yardstick, 0, aim);
    for (const Line& line : activities) {
        print(line, Median(yardstick.Times), aim);
    }
}

void run(const char* platform)
{
    QApplication::setCursorFlashTime(0); // a caret that blinks is painted too, and is not what we wait for
    const SystemClock clock;
    const OpenWindow sums = activity<Form2>(clock);
    const OpenWindow differences = activity<Form3>(clock);

    // The main menu stands behind an activity that a pupil opens, and has woken the toolkit's style and fonts.
    const PaintWatch watch;
    Form1 menu(clock);
    menu.show();
    watch.WaitFor(&menu);

    // The activities go first, so that their first time is the one that a pupil waits, with whatever is loaded late.
    const std::vector<Line> opened { { "open Sumas", timeOpenings(sums) },
        { "open Restas", timeOpenings(differences) } };
    const Line emptyOpened { "open an empty window", timeOpenings(openEmptyWindow) };
    const std::vector<Line> typed { { "type a digit in Sumas", timeKeyPresses(sums) },
        { "type a digit in Restas", timeKeyPresses(differences) } };
    const Line plainTyped { "type it in a plain box", timeKeyPresses(openPlainTextBox) };

    std::printf("Medians of %d openings to the first paint, and of %d key presses to the repainted box, on %s\n\n",
        openings, keyPresses, platform);
    std::printf("%-26s %7s %8s %6s %5s\n", "measured, ms", "first", "median", "ratio", "aim");
    print(emptyOpened, opened, aimedOpening);
    print(plainTyped, typed, aimedKeyPress);
}

} // namespace

} // namespace numbrela::bench

int main(int argc, char** argv)
{
    const char* platform = numbrela::bench::ChoosePlatform();
    // The platform without a display warns of every window, which is no news here.
    QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false"));
    numbrela::Application application(argc, argv);
    numbrela::bench::run(platform);
}
