#pragma once

#include "common/screen/FingerScroll.h"

#include <QWidget>

namespace numbrela {

class WorkingGrid;

// Shows a working grid as squared paper, a cell for each character and as many rows as there is room for, with a block
// on the cell that is written next; scrolls with the caret, by the wheel, and under a finger or a pen that is dragged.
// The mouse, a tap, and the keys that do so in any text box, move the caret, unless the form consumes them. The form
// decides what other keys do (HandleKeys); text from an input method is typed.
class WorkingGridBox : public QWidget {
    Q_OBJECT

public:
    // The box as it is designed, in twips.
    static constexpr int CellWidth = 165;
    static constexpr int Height = 7000;

    // The grid must outlive the box.
    explicit WorkingGridBox(WorkingGrid& grid, QWidget* parent = nullptr);

    // Shows the changed grid, scrolled to the row of the caret.
    void ShowGrid();

    const WorkingGrid& Grid() const { return grid_; }
    int FirstShownRow() const { return firstRow_; }
    int ShownRows() const;

    // Where a cell is painted (outside the box when it is scrolled away), and the cell at a point of the box.
    QRect CellRect(int cell) const;
    int CellAt(QPoint point) const;

    // The text for screen readers, row by row and with every blank, and the conversions between a cell and its offset
    // in that text.
    QString SpokenText() const;
    int SpokenOffset(int cell) const;
    int CellAtSpokenOffset(int offset) const;

    // Where the caret is and what is written there: "fila 2, columna 5: 7".
    QString SpokenPlace() const;

    // Puts the caret on a cell, and shows its row.
    void PutCaret(int cell);

    // Shows the row of a cell; the caret stays where it is.
    void ShowCell(int cell);

    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    int caretRow() const;
    int rowsInUse() const;
    void scrollTo(int row);
    void showFrom(int row);
    bool moveCaretByKey(const QKeyEvent& event);
    void tellAssistiveTools();
    void paintPaper(QPainter& painter) const;
    void paintCaret(QPainter& painter) const;
    void paintCharacters(QPainter& painter) const;
    void paintScrollMark(QPainter& painter) const;

    WorkingGrid& grid_;
    FingerScroll finger_;
    int firstRow_ = 0;
    int wheelTurn_ = 0; // eighths of a degree that have not yet scrolled a row
    QString toldText_;
};

} // namespace numbrela
