#pragma once

#include <QPushButton>

namespace numbrela {

// The small button that shows a keypad and hides it; it is lit while the keypad is there. It leaves the focus where it
// is. What it does is up to the keypad's owner, and so is its place.
class KeypadSwitch : public QPushButton {
    Q_OBJECT

public:
    explicit KeypadSwitch(QWidget* parent);

    // As high as other buttons.
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void paintKeys(QPainter& painter, const QColor& colour) const;
};

} // namespace numbrela
