#include "common/screen/CommandButton.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionButton>

#include <map>

namespace numbrela {

namespace {

// The one palette that all buttons with the colours of this one are drawn with.
const QPalette& sharedPalette(const QPalette& own)
{
    static std::map<QRgb, QPalette> palettes; // by the colour of the ground
    QPalette& shared = palettes[own.color(QPalette::Active, QPalette::Button).rgba()];
    if (shared != own) {
        shared = own;
    }
    return shared;
}

} // namespace

CommandButton::CommandButton(const QString& caption, QWidget* parent)
    : QPushButton(caption, parent)
{
    setAutoDefault(false);
}

void CommandButton::SetBackColour(const QColor& colour)
{
    QPalette coloured = palette();
    for (const auto group : { QPalette::Active, QPalette::Inactive }) {
        coloured.setColor(group, QPalette::Button, colour);
        coloured.setColor(group, QPalette::ButtonText, Qt::black);
    }
    setPalette(coloured);
}

QColor CommandButton::BackColour() const
{
    return palette().color(QPalette::Active, QPalette::Button);
}

// The style keeps the pictures of buttons by the identity of the palette, and the toolkit never forgets the name of
// one: were each button drawn with its own, memory would grow with every window that is opened.
void CommandButton::initStyleOption(QStyleOptionButton* option) const
{
    QPushButton::initStyleOption(option);
    const QPalette::ColorGroup group = option->palette.currentColorGroup();
    option->palette = sharedPalette(option->palette);
    option->palette.setCurrentColorGroup(group);
}

void CommandButton::paintEvent(QPaintEvent* event)
{
    QPushButton::paintEvent(event);
    if (hasFocus()) {
        constexpr int inset = 3;
        constexpr int thickness = 2;
        QPainter painter(this);
        painter.setPen(QPen(palette().color(QPalette::Highlight), thickness));
        painter.drawRect(rect().adjusted(inset, inset, -inset, -inset));
    }
}

void CommandButton::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QPushButton::keyPressEvent(event);
    } else if (!event->isAutoRepeat()) {
        click();
    }
}

} // namespace numbrela
