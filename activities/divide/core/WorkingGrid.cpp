#include "activities/divide/core/WorkingGrid.h"

#include "common/core/NumberText.h"

#include <algorithm>

namespace numbrela {

namespace {

constexpr char16_t blank = u' ';
constexpr char16_t backspace = 8;
constexpr std::size_t blanksBehindText = 2000;

std::u16string widened(std::string_view ascii)
{
    return { ascii.begin(), ascii.end() };
}

std::size_t place(int cell)
{
    return static_cast<std::size_t>(cell);
}

} // namespace

void WorkingGrid::Begin(std::string_view dividend)
{
    Text = blank + widened(dividend);
    clearFrom(end());
    MoveCaretToWorking();
}

void WorkingGrid::MoveCaretToWorking()
{
    const int beforeFirstDigit = Text.find(u'-') == 1 ? 1 : 0;
    MoveCaretTo(LineWidth + beforeFirstDigit);
    StepRight();
}

std::u16string_view WorkingGrid::Row(int row) const
{
    const std::u16string_view text = Text;
    return text.substr(place(std::min(row * LineWidth, end())), place(LineWidth));
}

std::u16string_view WorkingGrid::DividendCells() const
{
    return Row(0).substr(place(BlankBefore), place(LineWidth - BlankBefore - Margin));
}

bool WorkingGrid::IsBlankRow(int row) const
{
    return Row(row).find_first_not_of(blank) == std::u16string_view::npos;
}

int WorkingGrid::WrittenRows() const
{
    const std::size_t last = Text.find_last_not_of(blank);
    return last == std::u16string::npos ? 0 : static_cast<int>(last) / LineWidth + 1;
}

double WorkingGrid::RowValue(int row) const
{
    std::string cells;
    for (const char16_t character : Row(row)) {
        cells += character < 0x80 ? static_cast<char>(character) : '?';
    }
    return LeadingWholeNumber(cells);
}

bool WorkingGrid::caretIsOnCommaColumn() const
{
    return CommaColumn > -1 && Caret % LineWidth == CommaColumn;
}

void WorkingGrid::StepRight()
{
    MoveCaretTo(Caret + 1);
    if (caretIsOnCommaColumn()) {
        MoveCaretTo(Caret + 1);
    }
}

void WorkingGrid::StepLeft()
{
    MoveCaretTo(Caret - 1);
    if (caretIsOnCommaColumn()) {
        MoveCaretTo(Caret - 1);
    }
}

void WorkingGrid::MoveCaretTo(int cell)
{
    Caret = std::clamp(cell, 0, end());
}

void WorkingGrid::MoveCaretByRows(int rows)
{
    const int row = Caret / LineWidth;
    const int lastRow = end() / LineWidth;
    MoveCaretTo(std::clamp(row + rows, 0, lastRow) * LineWidth + Caret % LineWidth);
}

void WorkingGrid::TypeCharacter(char16_t character)
{
    if (Caret < LineWidth) {
        return;
    }
    if (caretIsOnCommaColumn()) {
        MoveCaretTo(Caret + 1);
    }
    if (Caret < end()) {
        Text[place(Caret)] = character == backspace || character == u'.' ? blank : character;
        StepRight();
    }
}

void WorkingGrid::WriteWorkingLine(std::string_view text, int column, int row)
{
    const int unshifted = LineWidth * row + column + 1 - static_cast<int>(text.size());
    int first = unshifted;
    if (first % LineWidth < CommaColumn) {
        commaShift_ = false;
    } else if (commaShift_) {
        ++first;
    }
    clearFrom(std::clamp(first, 0, end()));
    Text.insert(Text.size() - blanksBehindText, widened(text));
    partAtCommaColumn(std::max(unshifted, 0));
}

// Keeps the text up to this cell, followed by as many blanks as a working can need.
void WorkingGrid::clearFrom(int cell)
{
    Text.resize(place(cell));
    Text.append(blanksBehindText, blank);
}

void WorkingGrid::partAtCommaColumn(int firstCell)
{
    if (CommaColumn < 0) {
        return;
    }
    const int rowEnd = (firstCell / LineWidth + 1) * LineWidth;
    for (int cell = firstCell; cell <= std::min(rowEnd, end() - 1); ++cell) {
        if (cell % LineWidth == CommaColumn && Text[place(cell)] != blank) {
            const int behindShifted = cell + LineWidth - CommaColumn; // enough blanks follow every character
            Text.erase(place(behindShifted), 1);
            Text.insert(place(cell), 1, blank);
            commaShift_ = true;
            return;
        }
    }
}

} // namespace numbrela
