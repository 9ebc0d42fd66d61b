#include "activities/shopping/screen/ListBox.h"

#include "activities/shopping/screen/SelectionStart.h"

#include <QMouseEvent>
#include <QStyle>

#include <algorithm>

namespace numbrela {

ListBox::ListBox(QWidget* parent)
    : QListWidget(parent)
{
    setEditTriggers(NoEditTriggers);
    setUniformItemSizes(true);
    setWordWrap(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    BeginSelectionAtAnEnd(*this);
}

void ListBox::SetLines(const std::vector<std::string>& lines)
{
    QStringList texts;
    for (const std::string& line : lines) {
        texts << QString::fromStdString(line);
    }
    clear();
    addItems(texts);
    measureLines();
    setLayoutMode(uniformItemSizes() ? SinglePass : Batched);
}

void ListBox::SelectLine(int line)
{
    setCurrentRow(line);
}

std::optional<int> ListBox::SelectedLine() const
{
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    return selected.isEmpty() ? std::nullopt : std::optional(selected.front().row());
}

// A line that is still to be laid out has no place yet.
void ListBox::scrollTo(const QModelIndex& index, ScrollHint hint)
{
    if (layoutMode() == Batched && !isLaidOut(index.row())) {
        setLayoutMode(SinglePass);
        doItemsLayout();
    }
    QListWidget::scrollTo(index, hint);
}

// Once all lines have been laid out, they are laid out anew all at once, so that the list stays where it was scrolled.
void ListBox::timerEvent(QTimerEvent* event)
{
    QListWidget::timerEvent(event);
    if (layoutMode() == Batched && isLaidOut(count() - 1)) {
        setLayoutMode(SinglePass);
    }
}

bool ListBox::isLaidOut(int line) const
{
    return !visualRect(model()->index(line, 0)).isEmpty();
}

// The toolkit's own answer would be about the line under the mouse, which the form's answer may have taken away.
void ListBox::mouseDoubleClickEvent(QMouseEvent* event)
{
    event->accept();
    if (event->button() == Qt::LeftButton) {
        Q_EMIT DblClick();
    }
}

void ListBox::resizeEvent(QResizeEvent* event)
{
    fitLines();
    QListWidget::resizeEvent(event);
}

void ListBox::changeEvent(QEvent* event)
{
    QListWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        measureLines();
    }
}

void ListBox::measureLines()
{
    const int besideText = style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 1;
    widthOfLongestLine_ = 0;
    for (int line = 0; line < count(); ++line) {
        const int width = fontMetrics().horizontalAdvance(item(line)->text()) + 2 * besideText;
        widthOfLongestLine_ = std::max(widthOfLongestLine_, width);
    }
    fitLines();
}

// Thousands of lines that are all of one height are laid out at once; only where one is too long is each laid out by
// itself, the lines of a new list some at a time, so that the first ones are seen at once.
void ListBox::fitLines()
{
    const bool uniform = widthOfLongestLine_ <= viewport()->width();
    if (uniform != uniformItemSizes()) {
        setUniformItemSizes(uniform);
        setLayoutMode(SinglePass);
        scheduleDelayedItemsLayout();
    }
}

} // namespace numbrela
