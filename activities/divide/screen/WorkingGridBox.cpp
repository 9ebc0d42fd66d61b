#include "activities/divide/screen/WorkingGridBox.h"

#include "activities/divide/core/WorkingGrid.h"
#include "activities/divide/screen/WorkingGridAccessible.h"
#include "common/screen/Announcement.h"
#include "common/screen/Keyboard.h"

#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace numbrela {

namespace {

// In twips. Row 0 stands level with a box of 435 at the top of the grid.
constexpr int rowHeight = 345;
constexpr int roomAboveRows = 45;
constexpr int scrollMarkWidth = 60;

constexpr int eighthsOfADegreePerRow = 40; // a notch of the wheel is 120

} // namespace

WorkingGridBox::WorkingGridBox(WorkingGrid& grid, QWidget* parent)
    : QWidget(parent)
    , grid_(grid)
    , finger_(*this,
          {
              .Is = [this] { return firstRow_ * rowHeight * height() / Height; },
              .Set = [this](int pixels) { showFrom(qRound(1.0 * pixels * Height / rowHeight / height())); },
          },
          { .Tapped = [this](QPoint place, quint64 /*time*/) { PutCaret(CellAt(place)); } })
{
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::IBeamCursor);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_InputMethodEnabled);
    WorkingGridAccessible::Install();
}

void WorkingGridBox::ShowGrid()
{
    scrollTo(caretRow());
    update();
    tellAssistiveTools();
}

void WorkingGridBox::ShowCell(int cell)
{
    scrollTo(std::clamp(cell, 0, static_cast<int>(grid_.Text.size())) / grid_.LineWidth);
    update();
}

// Scrolls no farther than necessary, except that the row in which the working begins is shown with the dividend above
// it.
void WorkingGridBox::scrollTo(int row)
{
    const int lastFirstRow = row == 1 ? 0 : row;
    firstRow_ = std::clamp(firstRow_, std::max(row - ShownRows() + 1, 0), lastFirstRow);
}

int WorkingGridBox::caretRow() const
{
    return grid_.Caret / grid_.LineWidth;
}

int WorkingGridBox::rowsInUse() const
{
    return std::max(grid_.WrittenRows(), caretRow() + 1);
}

int WorkingGridBox::ShownRows() const
{
    return (Height - roomAboveRows) / rowHeight;
}

QRect WorkingGridBox::CellRect(int cell) const
{
    const int column = cell % grid_.LineWidth;
    const int row = cell / grid_.LineWidth - firstRow_;
    const auto left = [&](int leftColumn) { return leftColumn * width() / grid_.LineWidth; };
    const auto top = [&](int topRow) { return (roomAboveRows + topRow * rowHeight) * height() / Height; };
    return { QPoint(left(column), top(row)), QPoint(left(column + 1) - 1, top(row + 1) - 1) };
}

// The last column, and the last row, that begins before or on the pixel.
int WorkingGridBox::CellAt(QPoint point) const
{
    const int columns = ((point.x() + 1) * grid_.LineWidth - 1) / std::max(width(), 1);
    const int column = std::clamp(columns, 0, grid_.LineWidth - 1);
    const int twips = ((point.y() + 1) * Height - 1) / std::max(height(), 1) - roomAboveRows;
    const int row = std::clamp(twips / rowHeight, 0, ShownRows() - 1);
    return (firstRow_ + row) * grid_.LineWidth + column;
}

void WorkingGridBox::PutCaret(int cell)
{
    grid_.MoveCaretTo(cell);
    ShowGrid();
}

// ----------------------------------------------------------------------------------------- keys, the mouse and fingers

bool WorkingGridBox::event(QEvent* event)
{
    return finger_.Takes(*event) || QWidget::event(event);
}

void WorkingGridBox::keyPressEvent(QKeyEvent* event)
{
    if (moveCaretByKey(*event)) {
        ShowGrid();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void WorkingGridBox::inputMethodEvent(QInputMethodEvent* event)
{
    TypeInto(*this, event->commitString());
}

QVariant WorkingGridBox::inputMethodQuery(Qt::InputMethodQuery query) const
{
    return query == Qt::ImCursorRectangle ? QVariant(CellRect(grid_.Caret)) : QWidget::inputMethodQuery(query);
}

bool WorkingGridBox::moveCaretByKey(const QKeyEvent& event)
{
    const int rowStart = caretRow() * grid_.LineWidth;
    switch (event.key()) {
    case Qt::Key_Left:
        grid_.MoveCaretTo(grid_.Caret - 1);
        return true;
    case Qt::Key_Up:
        grid_.MoveCaretByRows(-1);
        return true;
    case Qt::Key_Down:
        grid_.MoveCaretByRows(1);
        return true;
    case Qt::Key_PageUp:
        grid_.MoveCaretByRows(-ShownRows());
        return true;
    case Qt::Key_PageDown:
        grid_.MoveCaretByRows(ShownRows());
        return true;
    case Qt::Key_Home:
        grid_.MoveCaretTo(rowStart);
        return true;
    case Qt::Key_End:
        grid_.MoveCaretTo(rowStart + grid_.LineWidth - 1);
        return true;
    default:
        return false;
    }
}

void WorkingGridBox::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        PutCaret(CellAt(event->pos()));
    }
}

void WorkingGridBox::wheelEvent(QWheelEvent* event)
{
    wheelTurn_ += event->angleDelta().y();
    const int rows = wheelTurn_ / eighthsOfADegreePerRow;
    wheelTurn_ -= rows * eighthsOfADegreePerRow;
    showFrom(firstRow_ - rows);
    event->accept();
}

void WorkingGridBox::showFrom(int row)
{
    const int lowest = std::max({ rowsInUse() - ShownRows(), firstRow_, 0 }); // keys go below what is written
    firstRow_ = std::clamp(row, 0, lowest);
    update();
}

void WorkingGridBox::focusInEvent(QFocusEvent* /*event*/)
{
    update();
}

void WorkingGridBox::focusOutEvent(QFocusEvent* /*event*/)
{
    update();
}

// --------------------------------------------------------------------------------------------------------- the picture

void WorkingGridBox::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    paintPaper(painter);
    if (hasFocus()) {
        paintCaret(painter);
    }
    paintCharacters(painter);
    paintScrollMark(painter);
}

void WorkingGridBox::paintPaper(QPainter& painter) const
{
    const QColor ruling(0xe3, 0xeb, 0xf4);
    painter.fillRect(rect(), palette().base());
    painter.setPen(ruling);
    const int firstCell = firstRow_ * grid_.LineWidth;
    for (int column = 1; column < grid_.LineWidth; ++column) {
        const int x = CellRect(firstCell + column).left();
        painter.drawLine(x, 0, x, height());
    }
    for (int row = 1; row < ShownRows(); ++row) {
        const int y = CellRect(firstCell + row * grid_.LineWidth).top();
        painter.drawLine(0, y, width(), y);
    }
    painter.setPen(hasFocus() ? palette().color(QPalette::Highlight) : palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void WorkingGridBox::paintCaret(QPainter& painter) const
{
    painter.fillRect(CellRect(grid_.Caret), palette().highlight());
}

void WorkingGridBox::paintCharacters(QPainter& painter) const
{
    painter.setFont(font());
    const int first = firstRow_ * grid_.LineWidth;
    const int end = std::min(first + ShownRows() * grid_.LineWidth, static_cast<int>(grid_.Text.size()));
    for (int cell = first; cell < end; ++cell) {
        const QChar character(grid_.Text[static_cast<std::size_t>(cell)]);
        if (character != u' ') {
            const bool onCaret = hasFocus() && cell == grid_.Caret;
            painter.setPen(palette().color(onCaret ? QPalette::HighlightedText : QPalette::Text));
            painter.drawText(CellRect(cell), Qt::AlignCenter | Qt::TextDontClip, QString(character));
        }
    }
}

// How much of the working is shown, and which part, once it has more rows than fit.
void WorkingGridBox::paintScrollMark(QPainter& painter) const
{
    const int rows = std::max(rowsInUse(), firstRow_ + ShownRows());
    if (rows > ShownRows()) {
        const int markWidth = std::max(scrollMarkWidth * height() / Height, 2);
        const int top = firstRow_ * height() / rows;
        const int markHeight = ShownRows() * height() / rows;
        painter.fillRect(QRect(width() - 2 * markWidth, top, markWidth, markHeight), palette().mid());
    }
}

// --------------------------------------------------------------------------------------------------- assistive tools

QString WorkingGridBox::SpokenText() const
{
    QStringList rows;
    for (int row = 0; row < rowsInUse(); ++row) {
        const std::u16string_view cells = grid_.Row(row);
        rows << QString::fromUtf16(cells.data(), static_cast<int>(cells.size()));
    }
    return rows.join(u'\n');
}

int WorkingGridBox::SpokenOffset(int cell) const
{
    return cell + cell / grid_.LineWidth;
}

int WorkingGridBox::CellAtSpokenOffset(int offset) const
{
    const int row = offset / (grid_.LineWidth + 1);
    const int column = std::min(offset % (grid_.LineWidth + 1), grid_.LineWidth - 1);
    return row * grid_.LineWidth + column;
}

QString WorkingGridBox::SpokenPlace() const
{
    const int row = grid_.Caret / grid_.LineWidth;
    const int column = grid_.Caret % grid_.LineWidth;
    const QString cell = SpokenText().mid(SpokenOffset(grid_.Caret), 1).trimmed();
    return QStringLiteral("fila %1, columna %2: %3")
        .arg(row + 1)
        .arg(column + 1)
        .arg(cell.isEmpty() ? QStringLiteral("en blanco") : cell);
}

void WorkingGridBox::tellAssistiveTools()
{
    if (!QAccessible::isActive()) {
        return;
    }
    const QString text = SpokenText();
    if (text != toldText_) {
        const SpokenChange change = ChangeBetween(toldText_, text);
        QAccessibleTextUpdateEvent update(this, change.Position, change.Removed, change.Inserted);
        QAccessible::updateAccessibility(&update);
        toldText_ = text;
    }
    if (hasFocus()) {
        QAccessibleTextCursorEvent move(this, SpokenOffset(grid_.Caret));
        QAccessible::updateAccessibility(&move);
        Announce(*this, SpokenPlace());
    }
}

} // namespace numbrela
