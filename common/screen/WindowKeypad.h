#pragma once

#include "common/screen/FreePlace.h"
#include "common/screen/Keypad.h"

#include <QObject>
#include <QPointF>

#include <optional>
#include <vector>

class QInputDialog;
class QMenuBar;

namespace numbrela {

class FormWindow;
class KeypadSwitch;

// Gives a window of the program its keypad: shows and hides it by a button in the menu bar, shows it when a finger or
// a pen touches a box that takes typing, and finds a place for it. That is beside the calculation, where the window has
// room; otherwise it floats over the window, and a hand can drag it. It never lies over the box that is written in. The
// keypad is made when it is first shown. Whether it is shown is the person's choice, which all windows share
// (FormWindow::Choices). While no box takes typing there is none, unless somebody presses the button just then, for an
// input box to come. While an input box is open, the keypad of the window is away: the box has its own.
class WindowKeypad : public QObject {
public:
    WindowKeypad(FormWindow& window, QMenuBar& menuBar, KeypadKeys keys);
    ~WindowKeypad() override;

    // To be called after the window has handled an event of its own.
    void WindowHas(QEvent::Type event);

    // Gives a box with a line to type into a keypad, too, as a part of the box and with the keys of a number.
    void ServeBox(QInputDialog& box);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void choose(bool shown);
    void update();
    void make();
    void placeAfresh();
    void goOutOfTheWay();
    void drag(QPoint place);
    void tryPlaces();
    bool anyBoxTakesTyping() const;
    QRect room() const;
    QRect boxInUse() const;
    QRect placeOf(const QWidget& control) const;
    QRect besideCalculation() const;
    std::vector<Obstacle> otherControls() const;

    FormWindow& window_;
    QMenuBar& menuBar_;
    const KeypadKeys keys_;
    KeypadSwitch* switch_;
    Keypad* keypad_ = nullptr;
    bool wantedAnyway_ = false; // although no box takes typing
    bool servesBox_ = false; // one is open
    std::optional<QPointF> dragged_; // to there; 0 to 1 of what the window leaves free
};

} // namespace numbrela
