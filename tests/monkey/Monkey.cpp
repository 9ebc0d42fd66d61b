#include "tests/monkey/Monkey.h"

#include "activities/multiply/screen/Dialog.h"
#include "activities/shopping/screen/Form7.h"
#include "tests/monkey/Ends.h"
#include "tests/monkey/Shopper.h"
#include "tests/support/Driver.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QScopedValueRollback>
#include <QThread>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace numbrela::testing {

namespace {

constexpr int secondsOfADay = 24 * 60 * 60;

const Key enter { Qt::Key_Return, QStringLiteral("\r") };

constexpr std::array<Qt::KeyboardModifiers, 7> modifiers {
    Qt::ShiftModifier,
    Qt::ControlModifier,
    Qt::AltModifier,
    Qt::ControlModifier | Qt::ShiftModifier,
    Qt::AltModifier | Qt::ShiftModifier,
    Qt::ControlModifier | Qt::AltModifier,
    Qt::ControlModifier | Qt::AltModifier | Qt::ShiftModifier,
};

template <std::size_t Size>
void write(std::array<char, Size>& place, const std::string& text)
{
    place.fill('\0');
    std::memcpy(place.data(), text.data(), std::min(text.size(), Size - 1));
}

QString nameOf(const QWidget& widget)
{
    const QString name
        = widget.objectName().isEmpty() ? QString::fromLatin1(widget.metaObject()->className()) : widget.objectName();
    return widget.isWindow() ? name : nameOf(*widget.window()) + u'/' + name;
}

QString shown(QPoint place)
{
    return QStringLiteral("(%1, %2)").arg(place.x()).arg(place.y());
}

// A text as it can be read in a log.
QString shown(const QString& text)
{
    constexpr int most = 60; // characters
    return text.size() > most ? QStringLiteral("«%1…» (%2)").arg(text.left(most)).arg(text.size())
                              : QStringLiteral("«%1»").arg(text);
}

QString shown(const Key& key, Qt::KeyboardModifiers with = Qt::NoModifier)
{
    return QKeySequence(QKeyCombination(with, static_cast<Qt::Key>(key.Code))).toString() + u' ' + shown(key.Text)
        + QLatin1String(key.Keypad ? " keypad" : "");
}

std::vector<QAction*> menuItemsOf(const QWidget& window)
{
    std::vector<QAction*> items;
    for (QAction* item : window.findChildren<QAction*>()) {
        if (!item->objectName().isEmpty() && item->menu() == nullptr && item->isEnabled() && item->isVisible()) {
            items.push_back(item);
        }
    }
    return items;
}

} // namespace

Monkey::Monkey(const Order& order, Progress& progress)
    : QObject(qApp)
    , order_(order)
    , progress_(progress)
    , chance_(order.Seed, order.Window.Window, progress.Event)
    , program_(order.Catalogue)
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
        letTimersFire(moment);
    }
}

void Monkey::letTimersFire(int longest)
{
    for (QWidget* window : WindowsOnScreen()) {
        timers_.LetFire(*window, longest);
    }
    timers_.LetFire(*qApp, longest); // tool tips
    Program::Settle();
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

void Monkey::say(const QString& what) const
{
    if (order_.Log) {
        std::printf("    %s\n", qUtf8Printable(what));
        std::fflush(stdout);
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

template <typename Box>
Box* Monkey::frontBox() const
{
    return dynamic_cast<Box*>(QApplication::activeModalWidget());
}

template <typename Acts>
void Monkey::doOneOf(const Acts& acts)
{
    int weights = 0;
    for (const Act& act : acts) {
        weights += act.Weight;
    }
    int drawn = chance_.Below(weights);
    for (const Act& act : acts) {
        drawn -= act.Weight;
        if (drawn < 0) {
            say(QString::fromLatin1(act.Name));
            (this->*act.Do)();
            return;
        }
    }
}

void Monkey::step()
{
    static constexpr std::array<Act, 25> atWindow { {
        { 125, "press a key", &Monkey::pressKey },
        { 35, "press a navigation key", &Monkey::pressNavigationKey },
        { 10, "press an access key", &Monkey::pressAccessKey },
        { 40, "type a number", &Monkey::typeNumber },
        { 10, "type wildly", &Monkey::typeWildly },
        { 10, "paste", &Monkey::paste },
        { 20, "hold a key", &Monkey::holdKey },
        { 20, "a held key repeats itself", &Monkey::repeatKey },
        { 30, "let a key go", &Monkey::letGoOfKey },
        { 200, "click a control", &Monkey::clickControl },
        { 30, "click anywhere", &Monkey::clickAnywhere },
        { 20, "click with another button", &Monkey::clickWithAnotherButton },
        { 30, "double-click", &Monkey::doubleClick },
        { 20, "drag", &Monkey::drag },
        { 10, "hover", &Monkey::hover },
        { 20, "turn the wheel", &Monkey::turnWheel },
        { 60, "choose a menu item", &Monkey::chooseMenuItem },
        { 15, "open a menu", &Monkey::openMenu },
        { 15, "resize", &Monkey::resizeWindow },
        { 10, "change the window's state", &Monkey::changeWindowState },
        { 8, "close", &Monkey::closeWindow },
        { 10, "go to another window", &Monkey::goToAnotherWindow },
        { 15, "let time pass", &Monkey::letTimePass },
        { 100, "shop", &Monkey::shop },
        { 5, "listen", &Monkey::listen },
    } };
    static constexpr std::array<Act, 9> atMenu { {
        { 40, "press a navigation key", &Monkey::pressNavigationKey },
        { 20, "press a key", &Monkey::pressKey },
        { 50, "click a menu item", &Monkey::clickMenuItem },
        { 10, "click anywhere", &Monkey::clickAnywhere },
        { 10, "hover", &Monkey::hover },
        { 20, "let time pass", &Monkey::letTimePass },
        { 5, "turn the wheel", &Monkey::turnWheel },
        { 5, "click with another button", &Monkey::clickWithAnotherButton },
        { 5, "hold a key", &Monkey::holdKey },
    } };
    static constexpr std::array<Act, 11> atBox { {
        { 60, "answer sensibly", &Monkey::answerSensibly },
        { 30, "answer wildly", &Monkey::answerWildly },
        { 80, "press a button of the box", &Monkey::pressBoxButton },
        { 20, "press a key", &Monkey::pressKey },
        { 15, "press a navigation key", &Monkey::pressNavigationKey },
        { 10, "press an access key", &Monkey::pressAccessKey },
        { 5, "a held key repeats itself", &Monkey::repeatKey },
        { 10, "let a key go", &Monkey::letGoOfKey },
        { 10, "click a control", &Monkey::clickControl },
        { 5, "click with another button", &Monkey::clickWithAnotherButton },
        { 10, "close", &Monkey::closeWindow },
    } };
    constexpr int comeBack = 20; // times out of a hundred
    constexpr int mostAway = 100; // events away from the window for each one at it

    ++progress_.Event;
    if (isWantedThere()) {
        ++progress_.EventsThere;
    } else if (progress_.Event > mostAway + mostAway * progress_.EventsThere) {
        std::fprintf(stderr, "the window is hardly ever there\n");
        std::abort();
    }
    chance_ = Chance(order_.Seed, order_.Window.Window, progress_.Event);
    if (order_.Log) {
        const QWidget* front = FrontWindow();
        const QWidget* focus = QApplication::focusWidget();
        std::printf("%lld at %s, focus %s\n", static_cast<long long>(progress_.Event.load()),
            front == nullptr ? "nothing" : qUtf8Printable(nameOf(*front)),
            focus == nullptr ? "nowhere" : qUtf8Printable(nameOf(*focus)));
    }
    if (QApplication::activePopupWidget() != nullptr) {
        doOneOf(atMenu);
    } else if (frontBox<QMessageBox>() != nullptr || frontBox<QInputDialog>() != nullptr) {
        noteEnd();
        doOneOf(atBox);
    } else if (busyLevel_ == 1 && !isWantedThere() && (progress_.Openings == 0 || chance_.Percent(comeBack))) {
        reopen();
    } else {
        doOneOf(atWindow);
    }
}

void Monkey::reopen()
{
    say(QStringLiteral("close everything and come back"));
    closeAll();
    program_.SetTime(chance_.Below(secondsOfADay));
    ++progress_.Openings;
    program_.Open(order_.Window);
}

// Pending events come first, such as a window that an access key of the menu opens.
void Monkey::closeAll()
{
    letTimersFire();
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
    const auto* box = frontBox<QMessageBox>();
    ProgramEnd end = box == nullptr ? ProgramEnd() : EndToldIn(box->text().toStdString());
    if (!end.Kind.empty()) {
        end.Window = nameOfFront().toStdString();
        write(progress_.EndWindow, end.Window);
        write(progress_.EndKind, end.Kind);
        write(progress_.EndDetail, end.Detail);
    }
}

QWidget* Monkey::anyControl()
{
    QWidget* front = FrontWindow();
    std::vector<QWidget*> controls;
    for (QWidget* widget : front == nullptr ? QList<QWidget*>() : front->findChildren<QWidget*>()) {
        if (widget->isVisible() && widget->window() == front && !widget->size().isEmpty()) {
            controls.push_back(widget);
        }
    }
    return controls.empty() ? front : chance_.OneOf(controls);
}

QPoint Monkey::anyPlaceIn(const QWidget& widget)
{
    return { chance_.Below(std::max(widget.width(), 1)), chance_.Below(std::max(widget.height(), 1)) };
}

void Monkey::press(const Key& key, Qt::KeyboardModifiers with)
{
    say(shown(key, with));
    hands_.Press(key, with);
}

void Monkey::pressKey()
{
    constexpr int alone = 80; // times out of a hundred
    const Key key = AnyKey(chance_);
    press(key, chance_.Percent(alone) ? Qt::NoModifier : chance_.OneOf(modifiers));
}

void Monkey::pressNavigationKey()
{
    press(NavigationKey(chance_));
}

void Monkey::pressAccessKey()
{
    press(KeyFor(QChar(u'a' + chance_.Below(26))), Qt::AltModifier);
}

void Monkey::typeNumber()
{
    const QString number = SensibleNumber(chance_);
    say(shown(number));
    hands_.Type(number);
}

void Monkey::typeWildly()
{
    constexpr int most = 12; // characters: what is longer is pasted
    const QString text = WildText(chance_).left(most);
    say(shown(text));
    hands_.Type(text);
}

void Monkey::paste()
{
    const QString text = WildText(chance_);
    say(shown(text));
    hands_.Paste(text);
}

void Monkey::holdKey()
{
    const Key key = AnyKey(chance_);
    say(shown(key));
    hands_.Hold(key);
}

void Monkey::repeatKey()
{
    constexpr int most = 20;
    for (int times = chance_.Below(most); times >= 0; --times) {
        hands_.RepeatHeld();
    }
}

void Monkey::letGoOfKey()
{
    hands_.LetGo();
}

void Monkey::atAnyControl(const std::function<void(QWidget& control, QPoint place)>& act)
{
    if (QWidget* control = anyControl()) {
        const QPoint place = anyPlaceIn(*control);
        say(nameOf(*control) + shown(place));
        act(*control, place);
    }
}

void Monkey::clickControl()
{
    atAnyControl([this](QWidget& control, QPoint /*place*/) {
        const Qt::KeyboardModifiers with = chance_.Percent(95) ? Qt::NoModifier : chance_.OneOf(modifiers);
        hands_.Click(control, control.rect().center(), Qt::LeftButton, with);
    });
}

void Monkey::clickAnywhere()
{
    if (QWidget* front = FrontWindow()) {
        const QPoint place = anyPlaceIn(*front);
        say(nameOf(*front) + shown(place));
        hands_.Click(*front, place, Qt::LeftButton);
    }
}

void Monkey::clickWithAnotherButton()
{
    atAnyControl([this](QWidget& control, QPoint place) {
        const Qt::MouseButton button = chance_.Percent(80) ? Qt::RightButton : Qt::MiddleButton;
        say(QLatin1String(button == Qt::RightButton ? "right" : "middle"));
        hands_.Click(control, place, button);
    });
}

void Monkey::doubleClick()
{
    atAnyControl([this](QWidget& control, QPoint place) { hands_.DoubleClick(control, place); });
}

void Monkey::drag()
{
    atAnyControl([this](QWidget& control, QPoint from) {
        const QPoint to = control.mapFrom(control.window(), anyPlaceIn(*control.window()));
        say(QLatin1String("to ") + shown(to));
        hands_.Drag(control, from, to);
    });
}

void Monkey::hover()
{
    atAnyControl([this](QWidget& control, QPoint place) { hands_.MoveTo(control, place); });
}

void Monkey::turnWheel()
{
    constexpr std::array<QPoint, 4> turns { { { 0, 120 }, { 0, -120 }, { 120, 0 }, { 0, -2400 } } };
    atAnyControl(
        [this, &turns](QWidget& control, QPoint place) { hands_.Wheel(control, place, chance_.OneOf(turns)); });
}

void Monkey::chooseMenuItem()
{
    const QWidget* front = FrontWindow();
    const std::vector<QAction*> items = front == nullptr ? std::vector<QAction*>() : menuItemsOf(*front);
    if (!items.empty()) {
        QAction* item = chance_.OneOf(items);
        say(item->objectName());
        item->trigger();
    }
}

void Monkey::openMenu()
{
    const QWidget* front = FrontWindow();
    auto* bar = front == nullptr ? nullptr : front->findChild<QMenuBar*>();
    if (bar != nullptr && bar->isVisible() && !bar->actions().isEmpty()) {
        hands_.Click(*bar, bar->actionGeometry(chance_.OneOf(bar->actions())).center(), Qt::LeftButton);
    }
}

void Monkey::clickMenuItem()
{
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (menu != nullptr && !menu->actions().isEmpty()) {
        QAction* item = chance_.OneOf(menu->actions());
        say(item->text());
        hands_.Click(*menu, menu->actionGeometry(item).center(), Qt::LeftButton);
    }
}

void Monkey::resizeWindow()
{
    constexpr int largest = 2000; // pixels: more than the screen has
    if (QWidget* front = FrontWindow()) {
        const QSize size(chance_.Below(largest), chance_.Below(largest));
        say(nameOf(*front) + shown(QPoint(size.width(), size.height())));
        front->resize(size);
        front->move(chance_.Below(largest) - largest / 2, chance_.Below(largest) - largest / 2);
    }
}

void Monkey::changeWindowState()
{
    constexpr std::array<Qt::WindowState, 4> states { Qt::WindowNoState, Qt::WindowMaximized, Qt::WindowFullScreen,
        Qt::WindowMinimized };
    if (QWidget* front = FrontWindow()) {
        const Qt::WindowState state = chance_.OneOf(states);
        say(nameOf(*front) + u' ' + QString::number(state));
        front->setWindowState(state);
        if (state == Qt::WindowMinimized) { // nobody plays with what is not on the screen
            Program::Settle();
            front->setWindowState(Qt::WindowNoState);
        }
    }
}

void Monkey::closeWindow()
{
    if (QWidget* front = FrontWindow(); front != nullptr && front->windowHandle() != nullptr) {
        say(nameOf(*front));
        front->windowHandle()->close();
    }
}

void Monkey::goToAnotherWindow()
{
    const std::vector<QWidget*> windows = WindowsOnScreen();
    if (!windows.empty()) {
        QWidget* window = chance_.OneOf(windows);
        say(nameOf(*window));
        window->activateWindow();
        hands_.Click(*window, anyPlaceIn(*window), Qt::LeftButton);
    }
}

void Monkey::letTimePass()
{
    constexpr int most = 5;
    for (int times = chance_.Below(most); times >= 0; --times) {
        letTimersFire();
    }
}

void Monkey::shop()
{
    if (const auto* form = dynamic_cast<Form7*>(FrontWindow())) {
        ShopOn(*form, chance_);
    } else {
        clickControl();
    }
}

// Asks what a screen reader asks of the control with the focus.
void Monkey::listen()
{
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(QApplication::focusWidget());
    if (spoken == nullptr || !spoken->isValid()) {
        return;
    }
    say(spoken->text(QAccessible::Name) + u' ' + spoken->text(QAccessible::Value).left(20));
    if (QAccessibleTextInterface* text = spoken->textInterface()) {
        const int place = chance_.Below(std::max(text->characterCount(), 1));
        text->characterRect(place);
        text->setCursorPosition(place);
        say(text->text(0, text->cursorPosition()).right(20));
    }
}

void Monkey::answerSensibly()
{
    if (auto* box = frontBox<QInputDialog>()) {
        const QString answer = SensibleAnswer(box->labelText(), chance_);
        say(shown(answer));
        box->setTextValue(answer);
        hands_.Press(enter);
    } else {
        pressBoxButton();
    }
}

void Monkey::answerWildly()
{
    if (auto* box = frontBox<QInputDialog>()) {
        const QString answer = WildText(chance_);
        say(shown(answer));
        if (auto* line = box->findChild<QLineEdit*>()) {
            line->selectAll();
            hands_.Paste(answer);
        }
        hands_.Press(enter);
    } else {
        pressBoxButton();
    }
}

void Monkey::pressBoxButton()
{
    std::vector<QAbstractButton*> buttons;
    if (const QWidget* front = FrontWindow()) {
        for (QAbstractButton* button : front->findChildren<QAbstractButton*>()) {
            if (button->isVisible()) {
                buttons.push_back(button);
            }
        }
    }
    if (!buttons.empty()) {
        QAbstractButton* button = chance_.OneOf(buttons);
        say(button->text());
        hands_.Click(*button, button->rect().center(), Qt::LeftButton);
    }
}

} // namespace numbrela::testing
