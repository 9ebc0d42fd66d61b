#pragma once

#include "common/screen/OfferedKeypad.h"

class QInputDialog;

namespace numbrela {

// The keypad of an input box, with the keys of a number. It stands between the line and the buttons, and the button
// that shows it beside those of the box; nothing is covered.
class BoxKeypad : public OfferedKeypad {
public:
    BoxKeypad(QInputDialog& box, const FormWindow& form);

private:
    void OnChoice(bool shown) override;
    void follow();

    QInputDialog& box_;
};

} // namespace numbrela
