#pragma once

#include <QWidget>

namespace numbrela {

class WorkingGrid;

// Shows a working grid as squared paper, a cell for each character and as many rows as there is room for, with a block
// on the cell that is written next; scrolls with the caret and by the wheel. It moves the caret by mouse and by the
// keys that move it in any text box, unless its form consumes them. What the other keys do is for the form to say
// (HandleKeys); what an input method writes is typed.
class WorkingGridBox : public QWidget {
    Q_OBJECT

public:
    // The box as it is designed, in twips.
    static constexpr int CellWidth = 165;
    static constexpr int Height = 7000;

    // The grid must outlive the box.
    explicit WorkingGridBox(WorkingGrid& grid, QWidget* parent = nullptr);

    // Shows what has been changed in the grid, with the row of the caret.
    void ShowGrid();

    const WorkingGrid& Grid() const { return grid_; }
    int FirstShownRow() const { return firstRow_; }
    int ShownRows() const;

    // Where a cell is painted, outside the box when it is scrolled away; and the cell at a point of the box.
    QRect CellRect(int cell) const;
    int CellAt(QPoint point) const;

    // What is written, row by row and with every blank, for those who hear it; how far into it a cell is, and back.
    QString SpokenText() const;
    int SpokenOffset(int cell) const;
    int CellAtSpokenOffset(int offset) const;

    // Puts the caret on a cell, and shows its row.
    void PutCaret(int cell);

    // Shows the row of a cell; the caret stays where it is.
    void ShowCell(int cell);

    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

protected:
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
    bool moveCaretByKey(const QKeyEvent& event);
    void tellAssistiveTools();
    void paintPaper(QPainter& painter) const;
    void paintCaret(QPainter& painter) const;
    void paintCharacters(QPainter& painter) const;
    void paintScrollMark(QPainter& painter) const;

    WorkingGrid& grid_;
    int firstRow_ = 0;
    int wheelTurn_ = 0; // eighths of a degree that have not yet scrolled a row
    QString toldText_;
};

} // namespace numbrela
