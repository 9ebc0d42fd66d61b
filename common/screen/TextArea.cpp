#include "common/screen/TextArea.h"

#include <QTextCursor>
#include <QWheelEvent>

namespace numbrela {

TextArea::TextArea(QWidget* parent)
    : QTextEdit(parent)
{
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void TextArea::SelectWholeText()
{
    QTextCursor cursor(document());
    cursor.movePosition(QTextCursor::End);
    cursor.movePosition(QTextCursor::Start, QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

// The toolkit would make the font another one; it goes with the size of the window alone.
void TextArea::wheelEvent(QWheelEvent* event)
{
    if (event->modifiers().testFlag(Qt::ControlModifier)) {
        event->ignore();
    } else {
        QTextEdit::wheelEvent(event);
    }
}

} // namespace numbrela
