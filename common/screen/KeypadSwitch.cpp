#include "common/screen/KeypadSwitch.h"

#include "common/screen/Keypad.h"

#include <QPainter>

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
    constexpr int columns = 4;
    constexpr int rows = 3;
    constexpr double radius = 3; // pixels
    const auto group = isEnabled() ? QPalette::Active : QPalette::Disabled;
    const QColor ink = palette().color(group, QPalette::ButtonText);
    const QColor lit = palette().color(group, QPalette::Highlight);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const int letters = fontMetrics().height();
    QRectF outline(0, 0, 2 * letters - 1, letters - 1);
    outline.moveCenter(QRectF(rect()).center());
    painter.setPen(isChecked() && isEnabled() ? lit : ink);
    painter.setBrush(isChecked() && isEnabled() ? lit : palette().color(group, QPalette::Button));
    if (underMouse() && isEnabled()) {
        painter.setPen(QPen(lit, 2));
    }
    painter.drawRoundedRect(outline, radius, radius);
    const QColor keys = isChecked() && isEnabled() ? palette().color(group, QPalette::HighlightedText) : ink;
    const QRectF inside = outline.adjusted(2, 2, -2, -2);
    const double width = inside.width() / columns;
    const double height = inside.height() / rows;
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            painter.fillRect(
                QRectF(inside.x() + column * width, inside.y() + row * height, width, height).adjusted(1, 1, -1, -1),
                keys);
        }
    }
}

} // namespace numbrela
