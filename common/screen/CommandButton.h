#pragma once

#include <QPushButton>

namespace numbrela {

// A push button that both Enter and Space press when it has the focus, and that can have a colour of its own. A double
// click or tap presses it once.
class CommandButton : public QPushButton {
public:
    explicit CommandButton(const QString& caption, QWidget* parent = nullptr);

    // Sets the background colour; the caption on it is black.
    void SetBackColour(const QColor& colour);
    QColor BackColour() const;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
};

} // namespace numbrela
