#include "activities/shopping/screen/ColumnArea.h"

#include <QEvent>
#include <QTextBlock>
#include <QTextDocument>

namespace numbrela {

ColumnArea::ColumnArea(QWidget* parent)
    : TextArea(parent)
{
    setFrameShape(NoFrame);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    document()->setDocumentMargin(0);
}

void ColumnArea::SetText(const std::string& text)
{
    TextArea::SetText(text);
    layOutRows();
}

void ColumnArea::resizeEvent(QResizeEvent* event)
{
    TextArea::resizeEvent(event);
    layOutRows();
}

void ColumnArea::changeEvent(QEvent* event)
{
    TextArea::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        layOutRows();
    }
}

void ColumnArea::layOutRows()
{
    constexpr int besideTheDigits = 5; // as far from the edge as a line edit keeps its text
    QTextBlockFormat row;
    row.setRightMargin(besideTheDigits);
    row.setAlignment(Qt::AlignRight);
    row.setLineHeight(
        static_cast<double>(viewport()->height()) / document()->blockCount(), QTextBlockFormat::FixedHeight);
    QTextCursor all(document());
    all.select(QTextCursor::Document);
    all.mergeBlockFormat(row);
}

} // namespace numbrela
