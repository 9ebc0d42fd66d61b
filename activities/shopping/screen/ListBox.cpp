#include "activities/shopping/screen/ListBox.h"

#include "activities/shopping/screen/SpanishOrder.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTimer>

#include <algorithm>

namespace numbrela {

ListBox::ListBox(QWidget* parent)
    : QListView(parent)
    , finger_(*this,
          {
              .DragBegins = [this] { setVerticalScrollMode(ScrollPerPixel); }, // so that lines stay under the finger
              .DragEnds = [this] { endDragging(); },
              .Tapped = [this](QPoint place, quint64 time) { tap(place, time); },
          })
{
    setModel(&lines_);
    setEditTriggers(NoEditTriggers);
    setWordWrap(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void ListBox::SetLines(const std::vector<std::string>& lines)
{
    QStringList texts;
    for (const std::string& line : lines) {
        texts << QString::fromStdString(line);
    }
    lines_.setStringList(texts);
}

void ListBox::SetSortedLines(const std::vector<ListLine>& lines)
{
    std::vector<std::string> texts;
    for (const ListLine& line : lines) {
        texts.push_back(line.Text);
    }
    QStringList sorted;
    data_.clear();
    for (const std::size_t place : SpanishOrder(texts)) {
        sorted << QString::fromStdString(lines[place].Text);
        data_.push_back(lines[place].Data);
    }
    lines_.setStringList(sorted);
}

void ListBox::RewriteLine(int line, const std::string& text)
{
    lines_.setData(lines_.index(line), QString::fromStdString(text));
}

int ListBox::LineOf(int wanted) const
{
    return static_cast<int>(std::find(data_.begin(), data_.end(), wanted) - data_.begin());
}

void ListBox::SelectLine(int line)
{
    setCurrentIndex(lines_.index(line));
}

std::optional<int> ListBox::SelectedLine() const
{
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    return selected.isEmpty() ? std::nullopt : std::optional(selected.front().row());
}

// Qt would have a screen reader believe that a line has the focus although the list has not, or although no line is
// selected.
void ListBox::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    if (hasFocus() && selectionModel()->isSelected(current)) {
        QListView::currentChanged(current, previous);
    } else {
        QAbstractItemView::currentChanged(current, previous);
    }
}

void ListBox::focusInEvent(QFocusEvent* event)
{
    QListView::focusInEvent(event);
    if (QAccessible::isActive()) {
        QTimer::singleShot(0, this, &ListBox::tellSelectedLine); // after Qt has told of the list
    }
}

// Qt tells of a line when it becomes the current one, but not when the list gets the focus, nor when the current line
// is selected.
void ListBox::tellSelectedLine()
{
    const std::optional<int> line = SelectedLine();
    if (QAccessible::isActive() && hasFocus() && line) {
        QAccessibleEvent focus(this, QAccessible::Focus);
        focus.setChild(*line);
        QAccessible::updateAccessibility(&focus);
    }
}

void ListBox::keyPressEvent(QKeyEvent* event)
{
    const std::optional<int> line = SelectedLine() ? std::nullopt : lineToBeginAt(event->key());
    if (line) {
        SelectLine(*line);
        tellSelectedLine();
    } else {
        QListView::keyPressEvent(event);
    }
}

// Qt would start from its current line, which a list with the focus has even when no line is selected.
std::optional<int> ListBox::lineToBeginAt(int key) const
{
    switch (key) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Home:
    case Qt::Key_PageUp:
    case Qt::Key_Space:
        return 0;
    case Qt::Key_End:
    case Qt::Key_PageDown:
        return LineCount() - 1;
    default:
        return std::nullopt;
    }
}

// A double click anywhere in the list acts on the selected line.
void ListBox::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        Q_EMIT doubleClicked(currentIndex());
    }
}

// ------------------------------------------------------------------------------------------------------------- fingers

bool ListBox::viewportEvent(QEvent* event)
{
    return finger_.Takes(*event) || QListView::viewportEvent(event);
}

// The list goes to the beginning of the line at its top, except at its end, whose last line would then be cut off.
void ListBox::endDragging()
{
    const bool atTheEnd = verticalScrollBar()->value() == verticalScrollBar()->maximum();
    setVerticalScrollMode(ScrollPerItem);
    if (atTheEnd) {
        scrollToBottom();
    }
}

void ListBox::tap(QPoint place, quint64 time)
{
    const QModelIndex line = indexAt(place);
    if (!line.isValid()) {
        return;
    }
    if (!selectionModel()->isSelected(line)) {
        doubleClicks_.Forget();
        SelectLine(line.row());
        tellSelectedLine();
    } else if (!doubleClicks_.IsSecond(time)) {
        Q_EMIT doubleClicked(line);
    }
}

} // namespace numbrela
