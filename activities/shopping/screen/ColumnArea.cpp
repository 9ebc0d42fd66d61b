#include "activities/shopping/screen/ColumnArea.h"

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

void ColumnArea::LayOutText()
{
    constexpr int besideTheDigits = 5; // pixels, the margin of a line edit
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
