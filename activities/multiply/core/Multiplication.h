#pragma once

#include "common/core/Int16.h"
#include "common/core/OptionList.h"
#include "common/core/Random.h"
#include "common/core/Score.h"
#include "common/core/Verdict.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace numbrela {

// A written multiplication: draws the factors, says how many partial rows it has and what belongs in them, judges the
// result and keeps the score. It knows no window: boxes, the shape of the rows on the screen and the focus are the
// form's.
class Multiplication {
public:
    static constexpr OptionList DigitChoices { 1, 10 };
    static constexpr OptionList DecimalChoices { 0, 6 };

    // What became of a factor that the pupil typed.
    struct FactorEntry {
        bool Accepted = false;
        std::string Message; // what to tell the pupil when it was not accepted
    };

    // The multiplication as a pupil would have worked it.
    struct WorkedSolution {
        std::string Result;
        std::vector<std::string> Rows; // from the top; blanks behind a row shift it to the left
    };

    // Draws from `random`, which must outlive the exercise. The first exercise is drawn by the first
    // NewMultiplication().
    explicit Multiplication(RandomSource& random);

    double Factor1 = 0; // with its decimals
    double Factor2 = 0;
    double Product = 0; // Factor2 × Factor1
    Int16 Digits1 = 1; // integer digits of each factor
    Int16 Digits2 = 1;
    Int16 Decimals1 = 1; // decimal places of each factor
    Int16 Decimals2 = 1;
    bool AnyDigits = true; // the digits of the second factor are free; otherwise they come from SelectedTables, if any
    std::string SelectedTables; // the chosen times tables in ascending order, for example "2357"
    bool HideZeros = false; // a zero digit of the second factor gets no partial row
    numbrela::Score Score;

    // Draws both factors. The first and the last digit of each are not 0; a whole second factor from chosen tables may
    // end in 0. It leaves Score.Scorable alone. A typed factor may have had more digits or decimals than the options
    // offer; a drawn one never has.
    void NewMultiplication();

    // The next exercise, which is scored again.
    void Continue();

    // Draws the second factor from these tables (as in SelectedTables) from now on, from any digits when there are
    // none.
    void ChooseTables(const std::string& tables);

    // Draws it from any digits from now on. The chosen tables are kept, but are not drawn from.
    void AllowAnyDigits() { AnyDigits = true; }

    // The factors as they are shown: "12,05".
    std::string Factor1Text() const;
    std::string Factor2Text() const;

    // The texts of both factors, which are on the screen from now on.
    std::array<std::string, 2> ShowFactors();

    // How many partial rows the second factor takes. With HideZeros the zeros are those of the second factor on the
    // screen: before a new one is shown, those of the last. This is intended. May be less than one.
    Int16 RowCount() const;

    // Whether the one partial row is already the result.
    bool HasSingleRow() const { return Digits2 + Decimals2 == 1; }

    // Judges the result. It is right if it differs from the product by less than 10^-12. The text of the verdict
    // differs from the one shown before, so that the pupil sees that a repeated verdict is a new one. Throws
    // RunTimeError::Overflow when a double cannot hold the result.
    Verdict Judge(std::string_view result, std::string_view shownVerdict) const;

    // The solution. From here on the exercise is not scored. All its digits are exact, also where a double would round
    // them. With HideZeros, the zeros are looked up in the second factor with its comma, but the digits of the rows
    // come from the factor without it. So the comma counts as a zero, and left of it the wrong digit, one place to the
    // right, decides whether a row is hidden. This is intended.
    WorkedSolution ShowSolution();

    // Takes a factor that the pupil typed; its digits and decimals become the ones to draw with. A refused one changes
    // nothing.
    FactorEntry EnterFactor1(std::string_view typed);
    FactorEntry EnterFactor2(std::string_view typed);

private:
    double drawNumber(int digitCount);
    double drawNumberFromTables(int digitCount);
    char drawCharacter(const std::string& pool);
    std::vector<std::string> solutionRows(const std::string& factor1, const std::string& withComma) const;
    FactorEntry enterFactor(std::string_view typed, double other, double& factor, Int16& digits, Int16& decimals);

    RandomSource& random_;
    std::string shownFactor2_;
};

} // namespace numbrela
