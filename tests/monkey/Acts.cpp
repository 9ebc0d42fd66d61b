#include "tests/monkey/Acts.h"

#include "activities/shopping/screen/Form7.h"
#include "common/screen/Keypad.h"
#include "tests/monkey/Hands.h"
#include "tests/monkey/Shopper.h"
#include "tests/monkey/StoppedTimers.h"
#include "tests/program/Program.h"
#include "tests/support/Driver.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QInputDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QWindow>

#include <algorithm>
#include <array>
#include <numeric>
#include <vector>

namespace numbrela::testing {

namespace {

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

// What a window has of a kind and shows.
template <typename Control>
std::vector<Control*> visibleIn(const QWidget* window)
{
    std::vector<Control*> visible;
    for (Control* control : window == nullptr ? QList<Control*>() : window->findChildren<Control*>()) {
        if (control->isVisible() && control->window() == window && !control->size().isEmpty()) {
            visible.push_back(control);
        }
    }
    return visible;
}

QPoint anyPlaceIn(const QWidget& widget, Chance& chance)
{
    return { chance.Below(std::max(widget.width(), 1)), chance.Below(std::max(widget.height(), 1)) };
}

// Does it with any control of the window in front, or with the window when it has none, at any place in it.
template <typename Act>
void atAnyControl(Means means, Act act)
{
    QWidget* front = FrontWindow();
    const std::vector<QWidget*> controls = visibleIn<QWidget>(front);
    if (QWidget* control = controls.empty() ? front : means.Draw.OneOf(controls)) {
        act(*control, anyPlaceIn(*control, means.Draw));
    }
}

void pressKey(Means means)
{
    constexpr int alone = 80; // times out of a hundred
    const Key key = AnyKey(means.Draw);
    means.With.Press(key, means.Draw.Percent(alone) ? Qt::NoModifier : means.Draw.OneOf(modifiers));
}

void pressAccessKey(Means means)
{
    means.With.Press(KeyFor(QChar(u'a' + means.Draw.Below(26))), Qt::AltModifier);
}

void typeWildly(Means means)
{
    constexpr int most = 12; // characters: what is longer is pasted
    means.With.Type(WildText(means.Draw).left(most));
}

void paste(Means means)
{
    means.With.Paste(WildText(means.Draw));
}

void repeatKey(Means means)
{
    constexpr int most = 20;
    for (int times = means.Draw.Below(most); times >= 0; --times) {
        means.With.RepeatHeld();
    }
}

void clickControl(Means means)
{
    atAnyControl(means, [means](QWidget& control, QPoint /*place*/) {
        const Qt::KeyboardModifiers with = means.Draw.Percent(95) ? Qt::NoModifier : means.Draw.OneOf(modifiers);
        means.With.Click(control, control.rect().center(), Qt::LeftButton, with);
    });
}

void clickAnywhere(Means means)
{
    if (QWidget* front = FrontWindow()) {
        means.With.Click(*front, anyPlaceIn(*front, means.Draw));
    }
}

void clickWithAnotherButton(Means means)
{
    atAnyControl(means, [means](QWidget& control, QPoint place) {
        means.With.Click(control, place, means.Draw.Percent(80) ? Qt::RightButton : Qt::MiddleButton);
    });
}

void doubleClick(Means means)
{
    atAnyControl(means, [means](QWidget& control, QPoint place) { means.With.DoubleClick(control, place); });
}

void drag(Means means)
{
    atAnyControl(means, [means](QWidget& control, QPoint from) {
        means.With.Drag(control, from, control.mapFrom(control.window(), anyPlaceIn(*control.window(), means.Draw)));
    });
}

void tap(Means means)
{
    atAnyControl(
        means, [means](QWidget& control, QPoint /*place*/) { means.With.Tap(control, control.rect().center()); });
}

// Until it is lifted, other fingers tap, and anything else may happen. It may lie beside what they tap, as a hand does
// that leans.
void restFinger(Means means)
{
    atAnyControl(means, [means](QWidget& control, QPoint place) { means.With.HoldByFinger(control, place); });
}

void dragByFinger(Means means)
{
    atAnyControl(means, [means](QWidget& control, QPoint from) {
        means.With.DragByFinger(
            control, from, control.mapFrom(control.window(), anyPlaceIn(*control.window(), means.Draw)));
    });
}

// The buttons of the window in front that have such a name.
std::vector<QAbstractButton*> buttonsNamed(const QStringList& starts)
{
    std::vector<QAbstractButton*> buttons = visibleIn<QAbstractButton>(FrontWindow());
    std::erase_if(buttons, [&starts](const QAbstractButton* button) {
        return std::none_of(starts.begin(), starts.end(),
            [button](const QString& start) { return button->objectName().startsWith(start); });
    });
    return buttons;
}

bool byFinger(Chance& chance)
{
    return chance.Percent(50);
}

// With the mouse or a finger, on a key of the keypad on the screen or on the button that shows it.
void pressKeypad(Means means)
{
    const auto keys = buttonsNamed({ QStringLiteral("Tecla("), QStringLiteral("CbTeclado") });
    if (!keys.empty()) {
        QAbstractButton& key = *means.Draw.OneOf(keys);
        const QPoint place = key.rect().center();
        byFinger(means.Draw) ? means.With.Tap(key, place) : means.With.Click(key, place);
    }
}

// Until it is let go, anything may happen: the window closes, a box opens, other keys are pressed.
void holdKeypad(Means means)
{
    if (const auto keys = buttonsNamed({ QStringLiteral("Tecla(") }); !keys.empty()) {
        QAbstractButton& key = *means.Draw.OneOf(keys);
        const QPoint place = key.rect().center();
        byFinger(means.Draw) ? means.With.HoldByFinger(key, place) : means.With.HoldByMouse(key, place);
    }
}

// By its grip, which is at its upper edge.
void dragKeypad(Means means)
{
    if (const auto pads = visibleIn<Keypad>(FrontWindow()); !pads.empty()) {
        Keypad& pad = *pads.front();
        const QPoint grip(pad.width() / 2, 2);
        const QPoint to = pad.mapFrom(pad.window(), anyPlaceIn(*pad.window(), means.Draw));
        byFinger(means.Draw) ? means.With.DragByFinger(pad, grip, to) : means.With.Drag(pad, grip, to);
    }
}

void hover(Means means)
{
    atAnyControl(means, [means](QWidget& control, QPoint place) { means.With.MoveTo(control, place); });
}

void turnWheel(Means means)
{
    static constexpr std::array<QPoint, 4> turns { { { 0, 120 }, { 0, -120 }, { 120, 0 }, { 0, -2400 } } };
    atAnyControl(
        means, [means](QWidget& control, QPoint place) { means.With.Wheel(control, place, means.Draw.OneOf(turns)); });
}

void chooseMenuItem(Means means)
{
    const QWidget* front = FrontWindow();
    std::vector<QAction*> items;
    for (QAction* item : front == nullptr ? QList<QAction*>() : front->findChildren<QAction*>()) {
        if (!item->objectName().isEmpty() && item->menu() == nullptr && item->isEnabled() && item->isVisible()) {
            items.push_back(item);
        }
    }
    if (!items.empty()) {
        QAction* item = means.Draw.OneOf(items);
        means.With.Say(item->objectName());
        item->trigger();
    }
}

// Clicks an item of a menu, or of the bar of menus.
template <typename Menu>
void clickItemOf(Menu* menu, Means means)
{
    if (menu != nullptr && menu->isVisible() && !menu->actions().isEmpty()) {
        means.With.Click(*menu, menu->actionGeometry(means.Draw.OneOf(menu->actions())).center());
    }
}

void openMenu(Means means)
{
    const QWidget* front = FrontWindow();
    clickItemOf(front == nullptr ? nullptr : front->findChild<QMenuBar*>(), means);
}

void clickMenuItem(Means means)
{
    clickItemOf(qobject_cast<QMenu*>(QApplication::activePopupWidget()), means);
}

void resizeWindow(Means means)
{
    constexpr int largest = 2000; // pixels: more than the screen has
    if (QWidget* front = FrontWindow()) {
        const QSize size(means.Draw.Below(largest), means.Draw.Below(largest));
        means.With.Say(QStringLiteral("%1 %2 x %3").arg(NameOf(*front)).arg(size.width()).arg(size.height()));
        front->resize(size);
        front->move(means.Draw.Below(largest) - largest / 2, means.Draw.Below(largest) - largest / 2);
    }
}

void changeWindowState(Means means)
{
    constexpr std::array<Qt::WindowState, 4> states { Qt::WindowNoState, Qt::WindowMaximized, Qt::WindowFullScreen,
        Qt::WindowMinimized };
    if (QWidget* front = FrontWindow()) {
        const Qt::WindowState state = means.Draw.OneOf(states);
        means.With.Say(NameOf(*front) + u' ' + QString::number(state));
        front->setWindowState(state);
        if (state == Qt::WindowMinimized) { // nobody plays with what is not on the screen
            Program::Settle();
            front->setWindowState(Qt::WindowNoState);
        }
    }
}

void closeWindow(Means means)
{
    if (QWidget* front = FrontWindow(); front != nullptr && front->windowHandle() != nullptr) {
        means.With.Say(NameOf(*front));
        front->windowHandle()->close();
    }
}

void goToAnotherWindow(Means means)
{
    const std::vector<QWidget*> windows = WindowsOnScreen();
    if (!windows.empty()) {
        QWidget* window = means.Draw.OneOf(windows);
        window->activateWindow();
        means.With.Click(*window, anyPlaceIn(*window, means.Draw));
    }
}

void letTimePass(Means means)
{
    constexpr int most = 5;
    for (int times = means.Draw.Below(most); times >= 0; --times) {
        means.Timers.LetFire();
    }
}

void shop(Means means)
{
    if (const auto* form = dynamic_cast<Form7*>(FrontWindow())) {
        ShopOn(*form, means.Draw);
    } else {
        clickControl(means);
    }
}

// Asks what a screen reader asks of the control with the focus.
void listen(Means means)
{
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(QApplication::focusWidget());
    if (spoken == nullptr || !spoken->isValid()) {
        return;
    }
    means.With.Say(spoken->text(QAccessible::Name) + u' ' + spoken->text(QAccessible::Value).left(20));
    if (QAccessibleTextInterface* text = spoken->textInterface()) {
        const int place = means.Draw.Below(std::max(text->characterCount(), 1));
        text->characterRect(place);
        text->setCursorPosition(place);
        means.With.Say(text->text(0, text->cursorPosition()).right(20));
    }
}

void pressBoxButton(Means means)
{
    const std::vector<QAbstractButton*> buttons = visibleIn<QAbstractButton>(FrontWindow());
    if (!buttons.empty()) {
        QAbstractButton* button = means.Draw.OneOf(buttons);
        means.With.Say(button->text());
        means.With.Click(*button, button->rect().center());
    }
}

void answerSensibly(Means means)
{
    if (auto* box = qobject_cast<QInputDialog*>(QApplication::activeModalWidget())) {
        const QString answer = SensibleAnswer(box->labelText(), means.Draw);
        means.With.Say(answer);
        box->setTextValue(answer);
        means.With.Press(enter);
    } else {
        pressBoxButton(means);
    }
}

void answerWildly(Means means)
{
    if (auto* box = qobject_cast<QInputDialog*>(QApplication::activeModalWidget())) {
        box->findChild<QLineEdit*>()->selectAll();
        paste(means);
        means.With.Press(enter);
    } else {
        pressBoxButton(means);
    }
}

struct Act {
    std::array<int, 3> Weights; // at a window, at a menu, at a box
    const char* Name;
    void (*Do)(Means means);
};

constexpr std::array<Act, 37> acts { {
    { { 125, 20, 20 }, "press a key", pressKey },
    { { 35, 40, 15 }, "press a navigation key", [](Means means) { means.With.Press(NavigationKey(means.Draw)); } },
    { { 10, 0, 10 }, "press an access key", pressAccessKey },
    { { 40, 0, 0 }, "type a number", [](Means means) { means.With.Type(SensibleNumber(means.Draw)); } },
    { { 10, 0, 0 }, "type wildly", typeWildly },
    { { 10, 0, 0 }, "paste", paste },
    { { 20, 5, 0 }, "hold a key", [](Means means) { means.With.Hold(AnyKey(means.Draw)); } },
    { { 20, 0, 5 }, "a held key repeats itself", repeatKey },
    { { 30, 0, 10 }, "let a key go", [](Means means) { means.With.LetGo(); } },
    { { 200, 0, 10 }, "click a control", clickControl },
    { { 30, 10, 0 }, "click anywhere", clickAnywhere },
    { { 20, 5, 5 }, "click with another button", clickWithAnotherButton },
    { { 30, 0, 0 }, "double-click", doubleClick },
    { { 20, 0, 0 }, "drag", drag },
    { { 60, 20, 10 }, "tap", tap },
    { { 20, 0, 0 }, "drag by a finger", dragByFinger },
    { { 15, 0, 5 }, "rest a finger", restFinger },
    { { 60, 0, 20 }, "press the keypad", pressKeypad },
    { { 30, 0, 20 }, "hold a key of the keypad", holdKeypad },
    { { 10, 0, 0 }, "drag the keypad", dragKeypad },
    { { 40, 15, 15 }, "let go of the screen", [](Means means) { means.With.LetGoOfScreen(); } },
    { { 10, 5, 5 }, "fill the screen", [](Means means) { means.With.Press({ Qt::Key_F11 }); } },
    { { 10, 10, 0 }, "hover", hover },
    { { 20, 5, 0 }, "turn the wheel", turnWheel },
    { { 60, 0, 0 }, "choose a menu item", chooseMenuItem },
    { { 15, 0, 0 }, "open a menu", openMenu },
    { { 0, 50, 0 }, "click a menu item", clickMenuItem },
    { { 15, 0, 0 }, "resize", resizeWindow },
    { { 10, 0, 0 }, "change the window's state", changeWindowState },
    { { 8, 0, 10 }, "close", closeWindow },
    { { 10, 0, 0 }, "go to another window", goToAnotherWindow },
    { { 15, 20, 0 }, "let time pass", letTimePass },
    { { 100, 0, 0 }, "shop", shop },
    { { 5, 0, 0 }, "listen", listen },
    { { 0, 0, 60 }, "answer sensibly", answerSensibly },
    { { 0, 0, 30 }, "answer wildly", answerWildly },
    { { 0, 0, 80 }, "press a button of the box", pressBoxButton },
} };

} // namespace

void ActAt(Front front, Means means)
{
    const auto weightOf = [front](const Act& act) { return act.Weights.at(static_cast<std::size_t>(front)); };
    int drawn = means.Draw.Below(std::accumulate(
        acts.begin(), acts.end(), 0, [weightOf](int sum, const Act& act) { return sum + weightOf(act); }));
    const auto act = std::find_if(
        acts.begin(), acts.end(), [&](const Act& candidate) { return (drawn -= weightOf(candidate)) < 0; });
    means.With.Say(QString::fromLatin1(act->Name));
    act->Do(means);
}

} // namespace numbrela::testing
