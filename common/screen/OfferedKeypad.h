#pragma once

#include "common/screen/Keypad.h"

#include <QObject>

namespace numbrela {

class FormWindow;
class KeypadSwitch;

// The keypad that a window, or an input box of it, offers, and the button that shows and hides it. A finger or a pen on
// a box that takes typing shows it as well. What was chosen last is the person's choice, which all windows share
// (FormWindow::Choices). The keypad is made when it is first needed. Where the two stand, and whether a keypad that is
// chosen is shown, is up to the class that derives from this.
class OfferedKeypad : public QObject {
public:
    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    // `window` is the form or a box of it.
    OfferedKeypad(QWidget& window, const FormWindow& form, KeypadKeys keys);

    KeypadSwitch& Switch() const { return *switch_; }

    // Null before it is needed, and then made.
    Keypad* Pad() const { return keypad_; }
    Keypad& MakePad();

    // The size of a key that a finger meets in a window as high as the form, in pixels.
    int KeySize() const;

    // Shows or hides the keypad, if there is one, and lights the button accordingly.
    void SetShown(bool shown);

    // Hides a keypad that is chosen, because there is no room for it. Then the button takes the choice back.
    void HideForLackOfRoom();

    bool IsChosen() const;
    virtual void OnChoice(bool shown) = 0;

private:
    void choose(bool shown);

    QWidget& window_;
    const FormWindow& form_;
    const KeypadKeys keys_;
    KeypadSwitch* switch_;
    Keypad* keypad_ = nullptr;
    bool lacksRoom_ = false; // although it is chosen
    const QObject* touched_ = nullptr; // the box on which a finger or a pen still is; only compared
};

// Whether what is typed into a control stays in it.
bool TakesTyping(const QWidget& control);

} // namespace numbrela
