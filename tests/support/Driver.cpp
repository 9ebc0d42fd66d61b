#include "tests/support/Driver.h"

#include <QAbstractButton>
#include <QAbstractEventDispatcher>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPointingDevice>
#include <QSignalSpy>
#include <QTest>
#include <QTextEdit>
#include <QTimer>
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

QPointingDevice* touchPanel()
{
    static QPointingDevice* const panel = QTest::createTouchDevice();
    return panel;
}

// Fingers that are down and do not move are on the panel, too.
std::map<int, QPoint>& fingers()
{
    static std::map<int, QPoint> down; // in their window
    return down;
}

enum class FingerDoes { Press, Move, Release };

void touch(const QWidget& control, int finger, FingerDoes what, QPoint place)
{
    QWindow* window = control.window()->windowHandle();
    auto touches = QTest::touchEvent(window, touchPanel());
    for (const auto& [other, where] : fingers()) {
        if (other != finger) {
            touches.stationary(other);
        }
    }
    const QPoint inWindow = control.mapTo(control.window(), place);
    switch (what) {
    case FingerDoes::Press:
        touches.press(finger, inWindow, window);
        fingers()[finger] = inWindow;
        break;
    case FingerDoes::Move:
        touches.move(finger, inWindow, window);
        break;
    case FingerDoes::Release:
        touches.release(finger, inWindow, window);
        fingers().erase(finger);
        break;
    }
    touches.commit();
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

// Qt calls a dialog active as soon as its form is.
void ShowAndActivate(QWidget& window)
{
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    ASSERT_TRUE(QTest::qWaitFor([&window] { return QApplication::activeWindow() == &window; }));
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

void ClickOnScreen(const QWidget& control)
{
    const QWidget& window = *control.window();
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, control.mapTo(&window, control.rect().center()));
}

void Tap(const QWidget& control, QPoint place)
{
    touch(control, 0, FingerDoes::Press, place);
    touch(control, 0, FingerDoes::Release, place);
}

void Tap(const QWidget& control)
{
    Tap(control, control.rect().center());
}

void FingerDown(const QWidget& control, int finger)
{
    touch(control, finger, FingerDoes::Press, control.rect().center());
}

void FingerUp(const QWidget& control, int finger)
{
    touch(control, finger, FingerDoes::Release, control.rect().center());
}

void MoveFinger(const QWidget& control, QPoint to, int finger)
{
    touch(control, finger, FingerDoes::Move, to);
}

void DragByFinger(const QWidget& control, QPoint from, QPoint to)
{
    constexpr int steps = 4;
    touch(control, 0, FingerDoes::Press, from);
    for (int step = 1; step <= steps; ++step) {
        touch(control, 0, FingerDoes::Move, from + (to - from) * step / steps);
    }
    touch(control, 0, FingerDoes::Release, to);
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
