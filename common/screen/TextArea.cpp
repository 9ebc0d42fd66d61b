#include "common/screen/TextArea.h"

#include "common/screen/Announcement.h"

#include <QEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTextCursor>
#include <QWheelEvent>

namespace numbrela {

TextArea::TextArea(QWidget* parent)
    : QTextEdit(parent)
    , finger_(*this, { .Tapped = [this](QPoint place, quint64 /*time*/) { setTextCursor(cursorForPosition(place)); } })
{
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    colours_.SetTakesTyping(false);
    connect(this, &QTextEdit::selectionChanged, this, [this] { colours_.SetHighlighted(textCursor().hasSelection()); });
}

void TextArea::SetText(const std::string& text)
{
    setPlainText(QString::fromStdString(text));
    LayOutText();
    colours_.ShowNoVerdict();
}

void TextArea::ShowVerdict(const Verdict& verdict)
{
    SetText(verdict.Text);
    colours_.ShowVerdict(verdict.Right);
    Announce(*this, toPlainText());
}

void TextArea::SelectWholeText()
{
    QTextCursor cursor(document());
    cursor.movePosition(QTextCursor::End);
    cursor.movePosition(QTextCursor::Start, QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

void TextArea::resizeEvent(QResizeEvent* event)
{
    QTextEdit::resizeEvent(event);
    LayOutText();
}

void TextArea::changeEvent(QEvent* event)
{
    QTextEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        LayOutText();
    }
}

bool TextArea::viewportEvent(QEvent* event)
{
    return finger_.Takes(*event) || QTextEdit::viewportEvent(event);
}

// Qt would let the mouse drag highlighted text away, and meanwhile nobody hears of a key that is released. So where it
// goes down there is no highlight any more, unless one that Shift makes longer. Nothing is scrolled yet.
void TextArea::mousePressEvent(QMouseEvent* event)
{
    const bool isClick = event->button() == Qt::LeftButton && event->modifiers() != Qt::ShiftModifier;
    if (isClick && textCursor().hasSelection()) {
        const int scrolled = verticalScrollBar()->value();
        setTextCursor(cursorForPosition(event->pos()));
        verticalScrollBar()->setValue(scrolled);
    }
    QTextEdit::mousePressEvent(event);
}

// Qt would change the size of the font, which depends on the size of the window alone.
void TextArea::wheelEvent(QWheelEvent* event)
{
    if (event->modifiers().testFlag(Qt::ControlModifier)) {
        event->ignore();
    } else {
        QTextEdit::wheelEvent(event);
    }
}

} // namespace numbrela
