#pragma once

#include "common/core/Int16.h"

#include <string>
#include <string_view>

namespace numbrela {

// The squared paper of a written division: a text of one character a cell, cut into rows of `LineWidth` cells. Row 0
// holds a blank and then the dividend, the rows below are for the working. Writing always replaces what is there, so
// that the cells keep their places, and skips the column of the decimal comma. The grid knows neither what the working
// means nor how the paper looks.
class WorkingGrid {
public:
    static constexpr int BlankBefore = 1; // cells before the dividend
    static constexpr int Margin = 2; // cells at the end of a row that dividend and comma leave free

    // `commaShift` is the CommaShift of WriteWorkingLine; it must outlive the grid.
    explicit WorkingGrid(bool& commaShift)
        : commaShift_(commaShift)
    {
    }

    std::u16string Text; // cell k is column k mod LineWidth of row k div LineWidth
    Int16 LineWidth = 1; // cells in a row
    Int16 CommaColumn = -1; // the column of the dividend's comma, counted from 0; -1 when it has none
    int Caret = 0; // the cell that is written next, 0 to the length of the text

    // A clean sheet with this dividend on top, as wide as `LineWidth` says, and the caret where the working begins.
    void Begin(std::string_view dividend);

    // Puts the caret into the row below the dividend, under its first digit, or right of the comma if that is under the
    // comma. The dividend's own row takes no typing.
    void MoveCaretToWorking();

    // The cells of a row; fewer than `LineWidth` of them at the end of the text, none below it.
    std::u16string_view Row(int row) const;

    // The dividend, and the blanks behind it as far as the margin.
    std::u16string_view DividendCells() const;

    // Whether nothing but blanks stands in the row.
    bool IsBlankRow(int row) const;

    // How many rows there are down to the last one that is not blank.
    int WrittenRows() const;

    // The whole number that a row begins with: blanks are skipped, even between digits, a minus sign may lead, and any
    // other character ends it: "  1 5" gives 15, "- 7" gives -7, "3,14" gives 3, "" gives 0.
    double RowValue(int row) const;

    // Moves the caret by one cell, or by two to skip the comma's column.
    void StepRight();
    void StepLeft();

    // Moves the caret to a cell, or to the nearer end of the text if there is no such cell.
    void MoveCaretTo(int cell);

    // Moves the caret by so many rows (upwards when negative) as far as there are rows, within its column.
    void MoveCaretByRows(int rows);

    // Writes a character at the caret, or right of the comma's column if the caret is in it, and steps right. Backspace
    // and "." write a blank. The dividend's row and the end of the text take no writing.
    void TypeCharacter(char16_t character);

    // Writes the text so that its last character comes to this column of this row, and clears all behind it. A text
    // that reaches into the comma's column is split there, the rest moving one cell to the right. From then on
    // CommaShift also moves texts that begin right of the comma by one cell, until a text begins left of it again, even
    // if that is in a later exercise.
    void WriteWorkingLine(std::string_view text, int column, int row);

private:
    bool caretIsOnCommaColumn() const;
    int end() const { return static_cast<int>(Text.size()); }
    void clearFrom(int cell);
    void partAtCommaColumn(int firstCell);

    bool& commaShift_;
};

} // namespace numbrela
