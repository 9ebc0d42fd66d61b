#include "tests/monkey/Hands.h"

#include "tests/support/Driver.h"

#include <QApplication>
#include <QClipboard>
#include <QTest>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace numbrela::testing {

namespace {

constexpr std::size_t mostHeldKeys = 3;

// A place of a widget, in its window. The window may have changed its size since the place was chosen.
QPoint placeIn(const QWindow& window, const QWidget& widget, QPoint place)
{
    const QPoint wanted = window.mapFromGlobal(widget.mapToGlobal(place));
    return { std::clamp(wanted.x(), 0, std::max(window.width() - 1, 0)),
        std::clamp(wanted.y(), 0, std::max(window.height() - 1, 0)) };
}

void mouse(QTest::MouseAction action, QWidget& widget, QPoint place, Qt::MouseButton button,
    Qt::KeyboardModifiers with = Qt::NoModifier)
{
    if (QWindow* window = widget.window()->windowHandle()) {
        QTest::mouseEvent(action, window, button, with, placeIn(*window, widget, place));
    }
}

} // namespace

void Hands::send(bool down, const Key& key, Qt::KeyboardModifiers with, bool repeated)
{
    constexpr int once = 1;
    if (QWindow* window = FocusWindow()) {
        const Qt::KeyboardModifiers all = key.Keypad ? with | Qt::KeypadModifier : with;
        const QString text = with.testFlag(Qt::ControlModifier) ? QString() : key.Text;
        QTest::simulateEvent(window, down, key.Code, all, text, repeated, once);
    }
}

void Hands::sendModifiers(bool down, Qt::KeyboardModifiers with)
{
    constexpr std::array<std::pair<Qt::KeyboardModifier, int>, 3> modifiers { {
        { Qt::ShiftModifier, Qt::Key_Shift },
        { Qt::ControlModifier, Qt::Key_Control },
        { Qt::AltModifier, Qt::Key_Alt },
    } };
    for (const auto& [modifier, code] : modifiers) {
        if (with.testFlag(modifier)) {
            send(down, { code }, down ? Qt::KeyboardModifiers() : Qt::KeyboardModifiers(modifier));
        }
    }
}

void Hands::Press(const Key& key, Qt::KeyboardModifiers with)
{
    sendModifiers(true, with);
    send(true, key, with);
    send(false, key, with);
    sendModifiers(false, with);
}

void Hands::Hold(const Key& key)
{
    if (held_.size() == mostHeldKeys) {
        LetGo();
    }
    held_.push_back(key);
    send(true, key, Qt::NoModifier);
}

void Hands::RepeatHeld()
{
    if (!held_.empty()) {
        const Key key = held_.back();
        send(false, key, Qt::NoModifier, true);
        send(true, key, Qt::NoModifier, true);
    }
}

void Hands::LetGo()
{
    if (!held_.empty()) {
        const Key key = held_.front();
        held_.erase(held_.begin());
        send(false, key, Qt::NoModifier);
    }
}

void Hands::Type(const QString& text)
{
    for (const QChar character : text) {
        Press(KeyFor(character));
    }
}

void Hands::Paste(const QString& text)
{
    QGuiApplication::clipboard()->setText(text);
    Press(KeyFor(u'v'), Qt::ControlModifier);
}

void Hands::Click(QWidget& widget, QPoint place, Qt::MouseButton button, Qt::KeyboardModifiers with)
{
    const QPointer<QWidget> alive = &widget;
    mouse(QTest::MousePress, widget, place, button, with);
    if (QWidget* under = alive != nullptr ? alive.data() : FrontWindow()) {
        mouse(QTest::MouseRelease, *under, place, button, with);
    }
}

void Hands::DoubleClick(QWidget& widget, QPoint place)
{
    mouse(QTest::MouseDClick, widget, place, Qt::LeftButton);
}

void Hands::Drag(QWidget& widget, QPoint from, QPoint to)
{
    constexpr int steps = 4;
    const QPointer<QWidget> alive = &widget;
    mouse(QTest::MousePress, widget, from, Qt::LeftButton);
    for (int step = 1; step <= steps && alive != nullptr; ++step) {
        mouse(QTest::MouseMove, *alive, from + (to - from) * step / steps, Qt::NoButton);
    }
    if (QWidget* under = alive != nullptr ? alive.data() : FrontWindow()) {
        mouse(QTest::MouseRelease, *under, to, Qt::LeftButton);
    }
}

void Hands::MoveTo(QWidget& widget, QPoint place)
{
    mouse(QTest::MouseMove, widget, place, Qt::NoButton);
}

void Hands::Wheel(QWidget& widget, QPoint place, QPoint turn)
{
    if (QWindow* window = widget.window()->windowHandle()) {
        const QPoint local = placeIn(*window, widget, place);
        QWheelEvent event(
            local, window->mapToGlobal(local), {}, turn, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(window, &event);
    }
}

} // namespace numbrela::testing
