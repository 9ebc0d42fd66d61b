#pragma once

#include <QPushButton>

namespace numbrela {

// A push button that Enter presses as Space does when it has the focus, and that can have a colour of its own. A double
// click presses it once.
class CommandButton : public QPushButton {
public:
    explicit CommandButton(const QString& caption, QWidget* parent = nullptr);

    // Colours the ground; the caption is black on it.
    void SetBackColour(const QColor& colour);
    QColor BackColour() const;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
};

} // namespace numbrela
