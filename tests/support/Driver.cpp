#include "tests/support/Driver.h"

#include <QAbstractButton>
#include <QAbstractEventDispatcher>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPointingDevice>
#include <QSignalSpy>
#include <QTest>
#include <QTextEdit>
#include <QTimer>
#include <QTouchEvent>
#include <QWindow>

#include <map>
#include <stdexcept>

namespace numbrela::testing {

namespace {

QWindow& focusWindow()
{
    if (QWindow* window = FocusWindow()) {
        return *window;
    }
    throw std::logic_error("no window has the focus");
}

// Qt keeps a panel until the process ends, and so do we.
QPointingDevice* touchPanel()
{
    static QPointingDevice* const panel = QTest::createTouchDevice();
    return panel;
}

struct Finger {
    QPointer<QWindow> Window; // in which it came down; when that is gone, Qt tells nobody of the finger any more
    QPoint Place; // there
};

// Those that are on the panel, whether they move or not.
std::map<int, Finger>& fingers()
{
    static std::map<int, Finger> down;
    return down;
}

QTest::QTouchEventSequence touchesBeside(int finger, QWindow& window)
{
    auto touches = QTest::touchEvent(&window, touchPanel(), false);
    for (const auto& [other, where] : fingers()) {
        if (other != finger && where.Window != nullptr) {
            touches.move(other, where.Place, where.Window); // to where it is: Qt would forget the place of one at rest
        }
    }
    return touches;
}

// In another window than before, a hand takes its time: a fast tap there would be the second one of a double tap.
void putDown(int finger, QWindow& window, QPoint place)
{
    static QPointer<QWindow> last;
    const int interval = QApplication::doubleClickInterval();
    if (last != &window) {
        QApplication::setDoubleClickInterval(0);
    }
    last = &window;
    touchesBeside(finger, window).press(finger, place, &window).commit();
    QApplication::setDoubleClickInterval(interval);
    fingers()[finger] = { &window, place };
}

void move(int finger, QPoint place)
{
    Finger& moved = fingers().at(finger);
    moved.Place = place;
    if (QWindow* window = moved.Window; window != nullptr && window->isVisible()) {
        touchesBeside(finger, *window).move(finger, place, window).commit();
    }
}

QPoint placeIn(const QWidget& control, QPoint place)
{
    return control.mapTo(control.window(), place);
}

void sendMarkedKey(QEvent::Type type, int key, Qt::KeyboardModifiers modifiers)
{
    const bool types = key >= Qt::Key_Space && key <= Qt::Key_AsciiTilde;
    QKeyEvent event(type, key, modifiers, types ? QString(QChar(key)) : QString(), true);
    QCoreApplication::sendEvent(&focusWindow(), &event);
}

} // namespace

void DoSoon(QObject& context, const std::function<void()>& act)
{
    QTimer::singleShot(0, &context, [act] {
        act();
        QAbstractEventDispatcher::instance()->wakeUp();
    });
}

void ShowAndActivate(QWidget& window)
{
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
}

// Qt's own list of widgets has an order by chance.
std::vector<QWidget*> WindowsOnScreen()
{
    std::vector<QWidget*> windows;
    for (const QWindow* window : QGuiApplication::topLevelWindows()) {
        if (QWidget* widget = window->handle() != nullptr ? QWidget::find(window->winId()) : nullptr;
            widget != nullptr && widget->isVisible()) {
            windows.push_back(widget);
        }
    }
    return windows;
}

QWidget* FrontWindow()
{
    for (QWidget* front :
        { QApplication::activePopupWidget(), QApplication::activeModalWidget(), QApplication::activeWindow() }) {
        if (front != nullptr) {
            return front;
        }
    }
    const std::vector<QWidget*> windows = WindowsOnScreen();
    return windows.empty() ? nullptr : windows.back();
}

QWindow* FocusWindow()
{
    if (QGuiApplication::focusWindow() == nullptr) {
        if (QWidget* front = FrontWindow()) {
            front->window()->activateWindow();
            QCoreApplication::processEvents();
        }
    }
    return QGuiApplication::focusWindow();
}

QObject& Find(const QWidget& window, QAnyStringView name, const QMetaObject& type)
{
    for (QObject* child : window.findChildren<QObject*>(name.toString())) {
        if (child->inherits(type.className())) {
            return *child;
        }
    }
    ADD_FAILURE() << "no " << type.className() << " named " << name.toString().toStdString();
    throw std::logic_error("no such control");
}

QString TextOf(const QWidget& control)
{
    if (const auto* box = qobject_cast<const QLineEdit*>(&control)) {
        return box->text();
    }
    if (const auto* box = qobject_cast<const QTextEdit*>(&control)) {
        return box->toPlainText();
    }
    if (const auto* button = qobject_cast<const QAbstractButton*>(&control)) {
        return button->text();
    }
    const auto* label = qobject_cast<const QLabel*>(&control);
    return label != nullptr ? label->text() : QString();
}

void Click(const QWidget& window, QAnyStringView controlName)
{
    auto& control = Find<QWidget>(window, controlName);
    EXPECT_TRUE(control.isVisible()) << controlName.toString().toStdString();
    QTest::mouseClick(&control, Qt::LeftButton);
}

void DoubleClick(const QWidget& window, QAnyStringView controlName)
{
    auto& control = Find<QWidget>(window, controlName);
    EXPECT_TRUE(control.isVisible()) << controlName.toString().toStdString();
    QTest::mouseDClick(&control, Qt::LeftButton);
}

void DragByMouse(const QWidget& control, QPoint from, QPoint to)
{
    QWindow* window = control.window()->windowHandle();
    QTest::mousePress(window, Qt::LeftButton, {}, placeIn(control, from));
    QTest::mouseMove(window, placeIn(control, to));
    QTest::mouseRelease(window, Qt::LeftButton, {}, placeIn(control, to));
}

void ClickOnScreen(const QWidget& control)
{
    const QWidget& window = *control.window();
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, control.mapTo(&window, control.rect().center()));
}

void Tap(const QWidget& control, QPoint place)
{
    FingerDown(control, place);
    LiftFinger();
}

Pace::~Pace()
{
    QApplication::setDoubleClickInterval(before_);
}

void Pace::TapSlowly() const
{
    QApplication::setDoubleClickInterval(0);
}

void Pace::TapQuickly() const
{
    TapSlowly();
    tapNowhere();
    QApplication::setDoubleClickInterval(1'000'000);
}

// So that no tap of another test is the first one of a double tap.
void Pace::tapNowhere()
{
    QWidget nowhere;
    nowhere.setAttribute(Qt::WA_AcceptTouchEvents);
    SendTouch(nowhere, QEventPoint::Pressed);
    SendTouch(nowhere, QEventPoint::Released);
}

void Tap(const QWidget& control)
{
    Tap(control, control.rect().center());
}

void FingerDown(const QWidget& control, QPoint place, int finger)
{
    putDown(finger, *control.window()->windowHandle(), placeIn(control, place));
}

void FingerDown(const QWidget& control, int finger)
{
    FingerDown(control, control.rect().center(), finger);
}

void MoveFinger(const QWidget& control, QPoint to, int finger)
{
    move(finger, placeIn(control, to));
}

void FingerUp(const QWidget& control, int finger)
{
    fingers().at(finger).Place = placeIn(control, control.rect().center());
    LiftFinger(finger);
}

void LiftFinger(int finger)
{
    const Finger lifted = fingers().at(finger);
    fingers().erase(finger);
    if (QWindow* window = lifted.Window) {
        touchesBeside(finger, *window).release(finger, lifted.Place, window).commit();
    }
}

void DragByFinger(const QWidget& control, QPoint from, QPoint to)
{
    constexpr int finger = 0;
    constexpr int steps = 4;
    const QPoint start = placeIn(control, from);
    const QPoint way = placeIn(control, to) - start;
    FingerDown(control, from);
    for (int step = 1; step <= steps; ++step) {
        move(finger, start + way * step / steps);
    }
    LiftFinger();
}

void SendTouch(QWidget& control, QEventPoint::State state, QPointF onScreen, quint64 milliseconds)
{
    const auto type = state == QEventPoint::Pressed ? QEvent::TouchBegin : QEvent::TouchEnd;
    QTouchEvent touch(type, nullptr, Qt::NoModifier, { QEventPoint(0, state, {}, onScreen) });
    touch.setTimestamp(milliseconds);
    QCoreApplication::sendEvent(&control, &touch);
}

void TakeFingerBack(QWidget& control)
{
    QTouchEvent cancel(QEvent::TouchCancel);
    QCoreApplication::sendEvent(&control, &cancel);
}

void SendPen(QEvent::Type type, const QWidget& control, QPoint place, Qt::MouseButton button, quint64 milliseconds)
{
    const QPointF inWindow = placeIn(control, place);
    const auto changed = type == QEvent::MouseMove ? Qt::NoButton : button;
    const auto down = type == QEvent::MouseButtonRelease ? Qt::NoButton : button;
    QMouseEvent pen(type, inWindow, inWindow, control.mapToGlobal(QPointF(place)), changed, down, Qt::NoModifier,
        Qt::MouseEventSynthesizedByQt);
    pen.setTimestamp(milliseconds);
    QCoreApplication::sendEvent(control.window()->windowHandle(), &pen);
}

void TapByPen(const QWidget& control, QPoint place, Qt::MouseButton button)
{
    SendPen(QEvent::MouseButtonPress, control, place, button);
    SendPen(QEvent::MouseButtonRelease, control, place, button);
}

void Choose(const QWidget& window, QAnyStringView itemName)
{
    auto& item = Find<QAction>(window, itemName);
    EXPECT_TRUE(item.isEnabled() && item.isVisible()) << itemName.toString().toStdString();
    item.trigger();
}

void Press(int key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(&focusWindow(), static_cast<Qt::Key>(key), modifiers);
}

void PressAccessKey(const QWidget& window, Qt::Key key, QAnyStringView buttonName)
{
    QSignalSpy clicked(&Find<QAbstractButton>(window, buttonName), &QAbstractButton::clicked);
    Press(key, Qt::AltModifier);
    EXPECT_TRUE(!clicked.isEmpty() || clicked.wait());
    EXPECT_EQ(clicked.count(), 1);
}

void HoldDown(int key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyPress(&focusWindow(), static_cast<Qt::Key>(key), modifiers);
}

void LetGo(int key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyRelease(&focusWindow(), static_cast<Qt::Key>(key), modifiers);
}

void Repeat(int key, Qt::KeyboardModifiers modifiers)
{
    HoldDown(key, modifiers);
}

void RepeatMarked(int key, Qt::KeyboardModifiers modifiers)
{
    sendMarkedKey(QEvent::KeyRelease, key, modifiers);
    sendMarkedKey(QEvent::KeyPress, key, modifiers);
}

void Type(QAnyStringView text)
{
    for (const QChar character : text.toString()) {
        QTest::keyClick(&focusWindow(), character.toLatin1());
    }
}

void TypeResult(QAnyStringView answer)
{
    QString reversed;
    for (const QChar character : answer.toString()) {
        reversed.prepend(character);
    }
    Type(reversed);
}

void TabTo(const std::string& controlName)
{
    constexpr int morePressesThanControls = 100;
    for (int presses = 0; presses < morePressesThanControls && FocusName() != controlName; ++presses) {
        Press(Qt::Key_Tab);
    }
    ASSERT_EQ(FocusName(), controlName);
}

std::string FocusName()
{
    const QWidget* focused = QApplication::focusWidget();
    return focused == nullptr ? std::string() : focused->objectName().toStdString();
}

} // namespace numbrela::testing
