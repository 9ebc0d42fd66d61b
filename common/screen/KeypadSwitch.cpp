#include "common/screen/KeypadSwitch.h"

#include "common/screen/Keypad.h"

#include <QPainter>

#include <algorithm>

namespace numbrela {

namespace {

constexpr int aroundTheDrawing = 8; // pixels

} // namespace

KeypadSwitch::KeypadSwitch(QWidget* parent)
    : QPushButton(parent)
{
    setObjectName(QStringLiteral("CbTeclado"));
    setAccessibleName(KeypadName);
    setToolTip(KeypadName);
    setCheckable(true);
    setAutoDefault(false);
    setFocusPolicy(Qt::NoFocus);
}

QSize KeypadSwitch::sizeHint() const
{
    return { 2 * fontMetrics().height() + aroundTheDrawing, QPushButton::sizeHint().height() };
}

// A keypad of three rows of keys, as high as the letters around it, in the middle of the button.
void KeypadSwitch::paintEvent(QPaintEvent* /*event*/)
{
    constexpr double radius = 3; // pixels
    const auto group = isEnabled() ? QPalette::Active : QPalette::Disabled;
    const QColor ink = palette().color(group, QPalette::ButtonText);
    const QColor lit = palette().color(group, QPalette::Highlight);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const int letters = fontMetrics().height();
    const QRect outline((width() - 2 * letters) / 2, (height() - letters) / 2, 2 * letters, letters);
    painter.setPen(isChecked() && isEnabled() ? lit : ink);
    painter.setBrush(isChecked() && isEnabled() ? lit : palette().color(group, QPalette::Button));
    if (underMouse() && isEnabled()) {
        painter.setPen(QPen(lit, 2));
    }
    painter.drawRoundedRect(QRectF(outline).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    paintKeys(painter, isChecked() && isEnabled() ? palette().color(group, QPalette::HighlightedText) : ink);
}

// In whole pixels, which keeps them sharp, with gaps that grow with them.
void KeypadSwitch::paintKeys(QPainter& painter, const QColor& colour) const
{
    constexpr int columns = 4;
    constexpr int rows = 3;
    const int letters = fontMetrics().height();
    const int gap = std::max(2, letters / 7);
    const QSize key((2 * letters - (columns + 1) * gap) / columns, (letters - (rows + 1) * gap) / rows);
    const QSize all(columns * (key.width() + gap) - gap, rows * (key.height() + gap) - gap);
    const QPoint first((width() - all.width()) / 2, (height() - all.height()) / 2);
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            const QPoint step(column * (key.width() + gap), row * (key.height() + gap));
            painter.fillRect(QRect(first + step, key), colour);
        }
    }
}

} // namespace numbrela
