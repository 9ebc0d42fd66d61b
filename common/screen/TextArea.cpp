#include "common/screen/TextArea.h"

#include <QTextCursor>

namespace numbrela {

TextArea::TextArea(QWidget* parent)
    : QTextEdit(parent)
{
    setAcceptRichText(false);
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setTabChangesFocus(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void TextArea::SelectWholeText()
{
    QTextCursor cursor(document());
    cursor.movePosition(QTextCursor::End);
    cursor.movePosition(QTextCursor::Start, QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

} // namespace numbrela
