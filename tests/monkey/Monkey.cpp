#include "tests/monkey/Monkey.h"

#include "activities/multiply/screen/Dialog.h"
#include "common/screen/OfferedKeypad.h"
#include "tests/monkey/Acts.h"
#include "tests/monkey/Ends.h"
#include "tests/monkey/Keeper.h"
#include "tests/support/Driver.h"
#include "tests/support/Shown.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QScopedValueRollback>
#include <QScreen>
#include <QThread>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace numbrela::testing {

namespace {

constexpr int secondsOfADay = 24 * 60 * 60;

template <std::size_t Size>
void write(std::array<char, Size>& place, const std::string& text)
{
    place.fill('\0');
    std::memcpy(place.data(), text.data(), std::min(text.size(), Size - 1));
}

} // namespace

Monkey::Monkey(const Order& order, Progress& progress)
    : QObject(qApp)
    , order_(order)
    , progress_(progress)
    , chance_(order.Seed, order.Window.Window, progress.Event)
    , program_(order.Catalogue)
    , hands_(order.Log)
    , beat_(startTimer(0))
{
    program_.Run().Tables = std::make_unique<Dialog>(); // is there already when what is alive is counted
    atFirst_ = alive();
    qApp->installEventFilter(this);
}

bool Monkey::Run()
{
    while (!finished_) {
        if (QApplication::exec() != EXIT_SUCCESS) {
            return false;
        }
        if (!finished_) {
            program_.StartAgain(); // the menu has been closed
            closeAll();
        }
    }
    expectFelt();
    return true;
}

bool Monkey::eventFilter(QObject* receiver, QEvent* event)
{
    if (receiver->isWidgetType() && event->type() == QEvent::KeyPress) {
        ++progress_.KeysFelt;
    } else if (receiver->isWidgetType() && event->type() == QEvent::MouseButtonPress) {
        ++progress_.ClicksFelt;
    } else if (event->type() == QEvent::MouseMove && qobject_cast<QAbstractButton*>(receiver) == nullptr) {
        if (auto* pad = qobject_cast<Keypad*>(receiver->parent())) { // at its grip
            dragged_ = pad;
        }
    }
    return false;
}

// A timer does not fire again until its handler returns, but inside the event loop of a box it has to: so each beat is
// a new timer.
void Monkey::timerEvent(QTimerEvent* /*event*/)
{
    killTimer(beat_);
    beat_ = startTimer(0);
    const int level = QThread::currentThread()->loopLevel();
    if (level <= busyLevel_) {
        return; // an event is not yet over
    }
    const QScopedValueRollback<int> busy(busyLevel_, level);
    Program::Settle();
    if (progress_.EventsThere < order_.Events) {
        step();
        drawBreath();
    } else {
        windDown();
    }
}

// Between two events there is mostly time enough for what takes a moment, such as a button that an access key presses.
void Monkey::drawBreath()
{
    constexpr int mostly = 80; // times out of a hundred
    constexpr int moment = 100; // milliseconds
    if (chance_.Percent(mostly)) {
        timers_.LetFire(moment);
    }
}

void Monkey::windDown()
{
    noteEnd(); // what is closed here may end the program too, as a number that is not typed does
    if (QWidget* popup = QApplication::activePopupWidget()) {
        popup->close();
    } else if (busyLevel_ > 1 && QApplication::activeModalWidget() != nullptr) {
        QApplication::activeModalWidget()->close();
    } else if (busyLevel_ > 1) {
        hands_.Press(KeyFor(u'\x1b')); // something is being dragged
    } else {
        closeAll();
        finished_ = true;
        QApplication::exit(EXIT_SUCCESS);
    }
}

// The window of the program's that is in front, behind whatever box or menu it has open. The dialog of the times tables
// was made before a window that it stands over.
QString Monkey::nameOfFront()
{
    if (program_.Run().Tables->isVisible()) {
        return program_.Run().Tables->objectName();
    }
    QString name;
    for (const QWidget* window : WindowsOnScreen()) {
        if (dynamic_cast<const FormWindow*>(window) != nullptr) {
            name = window->objectName();
        }
    }
    return name;
}

bool Monkey::isWantedThere()
{
    return nameOfFront() == QLatin1String(order_.Window.Window);
}

void Monkey::step()
{
    constexpr int comeBack = 20; // times out of a hundred
    constexpr int mostAway = 100; // events away from the window for each one at it

    ++progress_.Event;
    SayAlive();
    expectKeypadsAtRest();
    expectKeypadsInPlace();
    if (isWantedThere()) {
        ++progress_.EventsThere;
    } else if (progress_.Event > mostAway + mostAway * progress_.EventsThere) {
        std::fprintf(stderr, "the window is hardly ever there\n");
        std::abort();
    }
    chance_ = Chance(order_.Seed, order_.Window.Window, progress_.Event);
    const QWidget* front = FrontWindow();
    if (order_.Log) {
        const QWidget* focus = QApplication::focusWidget();
        std::printf("%lld at %s, focus %s\n", static_cast<long long>(progress_.Event.load()),
            front == nullptr ? "nothing" : qUtf8Printable(NameOf(*front)),
            focus == nullptr ? "nowhere" : qUtf8Printable(NameOf(*focus)));
    }
    const Means means { chance_, hands_, timers_ };
    if (QApplication::activePopupWidget() != nullptr) {
        ActAt(Front::Menu, means);
    } else if (front != nullptr && (front->inherits("QMessageBox") || front->inherits("QInputDialog"))) {
        noteEnd();
        ActAt(Front::Box, means);
    } else if (busyLevel_ == 1 && !isWantedThere() && (progress_.Openings == 0 || chance_.Percent(comeBack))) {
        reopen();
    } else {
        ActAt(Front::Window, means);
    }
}

void Monkey::reopen()
{
    hands_.Say(QStringLiteral("close everything and come back"));
    closeAll();
    program_.SetTime(chance_.Below(secondsOfADay));
    ++progress_.Openings;
    program_.Open(order_.Window);
}

// Pending events come first, such as a window that an access key of the menu opens.
void Monkey::closeAll()
{
    timers_.LetFire();
    program_.CloseAll();
    expectNothingLeft();
}

// The menu stays, and so does the dialog of the times tables, which is only hidden. What they own must not grow either.
Census Monkey::alive()
{
    return objects_.WindowsAndTimers({ &program_.Menu(), program_.Run().Tables.get() });
}

void Monkey::expectNothingLeft()
{
    if (const std::string left = Growth(atFirst_, alive()); !left.empty()) {
        std::fprintf(stderr, "left behind when every window but the menu has been closed: %s\n", left.c_str());
        std::abort();
    }
}

// A key of a keypad is down only as long as somebody holds it.
void Monkey::expectKeypadsAtRest() const
{
    if (hands_.HoldsScreen()) {
        return;
    }
    for (const QWidget* window : WindowsOnScreen()) {
        for (const auto* key : window->findChildren<QAbstractButton*>()) {
            if (key->isDown() && key->objectName().startsWith(QStringLiteral("Tecla("))) {
                std::fprintf(stderr, "nobody holds %s\n", qUtf8Printable(NameOf(*key)));
                std::abort();
            }
        }
    }
}

// Inside its window and off the box that is written in, unless somebody holds one of its keys. A window without the
// focus looks after it when it gets the focus.
void Monkey::expectKeypadsInPlace() const
{
    const QWidget* window = QApplication::activeWindow();
    const auto* pad = window != nullptr ? window->findChild<Keypad*>(QString(), Qt::FindDirectChildrenOnly) : nullptr;
    if (pad == nullptr || !pad->isVisible() || hands_.HoldsScreen()) {
        return;
    }
    const QWidget* box = window->focusWidget();
    const bool covers = box != nullptr && TakesTyping(*box) && pad->geometry().intersects(PlaceIn(*window, box));
    if (covers || !window->rect().contains(pad->geometry())) {
        std::fprintf(stderr, "the keypad is not in its place in %s\n", qUtf8Printable(NameOf(*window)));
        std::abort();
    }
    expectButtonsInSight(*window, *pad);
}

// No button is under the keypad with its last pixel, unless a hand has brought the keypad there, or the window is
// smaller than designed or larger than the screen, so that there may be no room.
void Monkey::expectButtonsInSight(const QWidget& window, const QWidget& pad) const
{
    const auto* form = dynamic_cast<const FormWindow*>(&window);
    if (form == nullptr || &pad == dragged_ || form->Area().PixelsPerTwip() < form->Area().DesignPixelsPerTwip()
        || !QRect({}, window.screen()->size()).contains(QRect({}, window.size()))) {
        return;
    }
    for (const auto* button : LostUnder<QAbstractButton>(pad)) {
        std::fprintf(stderr, "the keypad covers %s\n", qUtf8Printable(NameOf(*button)));
        std::abort();
    }
}

// A monkey whose keys or clicks do not reach any control has tested nothing.
void Monkey::expectFelt() const
{
    constexpr int fewest = 20; // events at the window for each key or click
    if (std::min(progress_.KeysFelt.load(), progress_.ClicksFelt.load()) < progress_.EventsThere / fewest) {
        std::fprintf(stderr, "felt were only %lld keys and %lld clicks\n",
            static_cast<long long>(progress_.KeysFelt.load()), static_cast<long long>(progress_.ClicksFelt.load()));
        std::abort();
    }
}

// The box in which the program says goodbye is open.
void Monkey::noteEnd()
{
    const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ProgramEnd end = box == nullptr ? ProgramEnd() : EndToldIn(box->text().toStdString());
    if (!end.Kind.empty()) {
        end.Window = nameOfFront().toStdString();
        write(progress_.EndWindow, end.Window);
        write(progress_.EndKind, end.Kind);
        write(progress_.EndDetail, end.Detail);
    }
}

} // namespace numbrela::testing
