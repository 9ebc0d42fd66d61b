#pragma once

#include "activities/divide/core/WorkingGrid.h"
#include "common/core/Int16.h"
#include "common/core/OptionList.h"
#include "common/core/Random.h"
#include "common/core/Score.h"
#include "common/core/Verdict.h"

#include <optional>
#include <string>
#include <string_view>

namespace numbrela {

// A long division with its working: draws dividend and divisor, or takes the pupil's own, judges quotient and last
// remainder, works the solution out step by step, and keeps the score. It knows no window: boxes, lines, menus and the
// focus are the form's.
class DivisionExercise {
public:
    static constexpr OptionList DividendDigitChoices { 1, 9 };
    static constexpr OptionList DividendDecimalChoices { 0, 6 };
    static constexpr OptionList DivisorDigitChoices { 1, 9 };
    static constexpr OptionList QuotientDecimalChoices { 0, 6 };

    // Draws from `random`. `commaShift` is the grid's, and shared with every other exercise of the program. Both must
    // outlive the exercise. The first division is drawn by the first GenerateDivision().
    DivisionExercise(RandomSource& random, bool& commaShift);

    Int16 DividendDigits = 2; // integer digits
    Int16 DividendDecimals = 2;
    Int16 DivisorDigits = 1;
    Int16 QuotientDecimals = 0; // decimals that the quotient is worked to
    bool ShowSubtractions = false; // whether the solution writes out what is subtracted at each step
    double Dividend = 0;
    double Divisor = 0; // always a whole number
    WorkingGrid Grid;
    numbrela::Score Score;

    // A new dividend and divisor from the options, on a clean grid, to be scored. Throws RunTimeError::Overflow, and
    // changes nothing, when the options ask for a longer number than a grid or a double holds.
    void GenerateDivision();

    // Dividend and divisor as they are shown, and both with the sign between them: "84 ÷ 4".
    std::string DividendText() const;
    std::string DivisorText() const;
    std::string Statement() const;

    // Takes the working off the grid; the exercise stays.
    void ClearWorking();

    // Judges the text of the quotient box together with the last remainder on the grid. An answer is right if quotient
    // and remainder give back the dividend. A quotient that is to be worked to decimals is not judged: there is no
    // verdict, and the pupil is told why. What was judged is for `Score` to count.
    std::optional<Verdict> Judge(std::string_view quotient) const;
    static constexpr const char* WhyNotJudged = "El número de decimales no es cero, por favor utilice la opción \"Ver "
                                                "solución\" para comprobar su resultado.";

    // Writes the working into the grid, the caret where it begins, and returns the quotient. From here on the exercise
    // is not scored. Throws RunTimeError::Overflow, and changes nothing, when a running remainder or the divisor does
    // not fit 32 bits.
    std::string ShowDivisionSolution();

    // Take a number that the pupil typed; its whole part counts. Return false and change nothing if the text is not a
    // number other than 0, or if a divisor has no whole part. Throw RunTimeError::Overflow, and change nothing, if a
    // grid or a double cannot hold the number. A dividend begins a clean grid without room for decimals; the comma's
    // column, and what the options say of decimals, stay as they were.
    bool EnterDividend(std::string_view typed);
    bool EnterDivisor(std::string_view typed);

private:
    double drawWholeNumber(int digits);
    double lastRemainder() const;
    int scale() const;

    RandomSource& random_;
};

} // namespace numbrela
