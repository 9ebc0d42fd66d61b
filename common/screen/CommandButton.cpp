#include "common/screen/CommandButton.h"

#include <QKeyEvent>
#include <QShortcutEvent>

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

// An access key that is held presses once, too: what it leads to must not be counted again and again.
bool CommandButton::event(QEvent* event)
{
    if (event->type() == QEvent::Shortcut) {
        setShortcutAutoRepeat(static_cast<QShortcutEvent*>(event)->shortcutId(), false);
    }
    return QPushButton::event(event);
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
