#pragma once

#include <QPushButton>

class QMenuBar;

namespace numbrela {

// The small button at the right end of a menu bar that shows the keypad and hides it. It is as high as the letters of
// the menu, so that the bar does not grow, and leaves the focus where it is. It stands over the bar and not in it: what
// assistive tools find in a bar are its menus alone.
class KeypadSwitch : public QPushButton {
public:
    // The window's menu bar keeps the place free from now on.
    KeypadSwitch(QWidget& window, QMenuBar& bar);

    // Goes to its place, which depends on the size of the bar.
    void TakePlace();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QMenuBar& bar_;
};

} // namespace numbrela
