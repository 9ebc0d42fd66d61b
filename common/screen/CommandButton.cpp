#include "common/screen/CommandButton.h"

#include <QKeyEvent>

namespace numbrela {

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

void CommandButton::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
    } else {
        QPushButton::keyPressEvent(event);
    }
}

// The second press of a double click is ignored: the hand meant one click.
void CommandButton::mouseDoubleClickEvent(QMouseEvent* event)
{
    event->accept();
}

} // namespace numbrela
