#include "common/screen/KeypadSwitch.h"

#include <QMenuBar>
#include <QPainter>

namespace numbrela {

namespace {

// Keeps a place free at the right end of a menu bar, as large as the letters of the bar need it.
class FreeCorner : public QWidget {
public:
    using QWidget::QWidget;

    QSize sizeHint() const override
    {
        constexpr int aroundTheLetters = 4; // pixels, no more than the bar itself has
        const int height = fontMetrics().height() + aroundTheLetters;
        return { height * 2, height };
    }
};

} // namespace

KeypadSwitch::KeypadSwitch(QWidget& window, QMenuBar& bar)
    : QPushButton(&window)
    , bar_(bar)
{
    setObjectName(QStringLiteral("CbTeclado"));
    setAccessibleName(QStringLiteral("Teclado en pantalla"));
    setCheckable(true);
    setAutoDefault(false);
    setFocusPolicy(Qt::NoFocus);
    bar.setCornerWidget(new FreeCorner(&bar), Qt::TopRightCorner);
}

void KeypadSwitch::TakePlace()
{
    const QSize size = bar_.cornerWidget()->sizeHint();
    const QRect bar = bar_.geometry();
    setGeometry(
        bar.right() + 1 - size.width(), bar.y() + (bar.height() - size.height()) / 2, size.width(), size.height());
    raise();
}

// A keypad of three rows of keys.
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
    const QRectF outline = QRectF(rect()).adjusted(4.5, 2.5, -4.5, -2.5);
    painter.setPen(isChecked() && isEnabled() ? lit : ink);
    painter.setBrush(isChecked() && isEnabled() ? lit : palette().color(group, QPalette::Button));
    if (underMouse() && isEnabled()) {
        painter.setPen(QPen(lit, 2));
    }
    painter.drawRoundedRect(outline, radius, radius);
    painter.setPen(Qt::NoPen);
    painter.setBrush(isChecked() && isEnabled() ? palette().color(group, QPalette::HighlightedText) : ink);
    const QRectF inside = outline.adjusted(2, 2, -2, -2);
    const double width = inside.width() / columns;
    const double height = inside.height() / rows;
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            painter.drawRoundedRect(
                QRectF(inside.x() + column * width, inside.y() + row * height, width, height).adjusted(1, 1, -1, -1), 1,
                1);
        }
    }
}

} // namespace numbrela
