#pragma once

#include "activities/divide/core/DivisionExercise.h"
#include "common/core/NumberText.h"
#include "tests/support/ScriptedRandom.h"

#include <string>
#include <string_view>
#include <vector>

namespace numbrela::testing {

// What the options say.
struct DivisionOptions {
    int DividendDigits = 2;
    int DividendDecimals = 0;
    int DivisorDigits = 1;
    int QuotientDecimals = 0;
    bool ShowSubtractions = false;
};

inline void setOptions(DivisionExercise& exercise, const DivisionOptions& options)
{
    exercise.DividendDigits = options.DividendDigits;
    exercise.DividendDecimals = options.DividendDecimals;
    exercise.DivisorDigits = options.DivisorDigits;
    exercise.QuotientDecimals = options.QuotientDecimals;
    exercise.ShowSubtractions = options.ShowSubtractions;
}

// An exercise that has been drawn as a test wants it. The dividend is given without its comma.
class DrawnDivision {
public:
    DrawnDivision(const DivisionOptions& options, double dividendDigits, double divisor)
        : random_ { DrawOfDigits(dividendDigits, options.DividendDigits + options.DividendDecimals),
            DrawOfDigits(divisor, options.DivisorDigits) }
        , Exercise(random_, CommaShift)
    {
        setOptions(Exercise, options);
        Exercise.GenerateDivision();
    }

private:
    ScriptedRandom random_;

public:
    bool CommaShift = false;
    DivisionExercise Exercise;
};

// The row without the blanks at its end.
inline std::string rowText(const WorkingGrid& grid, int row)
{
    const std::u16string_view cells = grid.Row(row);
    std::string text(cells.begin(), cells.end());
    return text.erase(text.find_last_not_of(' ') + 1);
}

// The rows down to the last one that is not blank.
inline std::vector<std::string> rowsOf(const WorkingGrid& grid)
{
    std::vector<std::string> rows;
    for (int row = 0; row < grid.WrittenRows(); ++row) {
        rows.push_back(rowText(grid, row));
    }
    return rows;
}

// Types into a row from its first cell on.
inline void typeRow(WorkingGrid& grid, int row, std::string_view text)
{
    grid.MoveCaretTo(row * grid.LineWidth);
    for (const char character : text) {
        grid.TypeCharacter(static_cast<unsigned char>(character));
    }
}

} // namespace numbrela::testing
