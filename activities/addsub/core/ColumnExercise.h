#pragma once

#include "common/core/Int16.h"
#include "common/core/OptionList.h"
#include "common/core/Random.h"
#include "common/core/Score.h"
#include "common/core/Verdict.h"

#include <string>
#include <string_view>

namespace numbrela {

// The texts of the two operand boxes, the upper one first.
struct OperandTexts {
    std::string Upper;
    std::string Lower;
};

// What became of an operand that the pupil typed.
struct OperandEntry {
    bool Accepted = false; // the exercise on the screen is a new one
    std::string Message; // what to tell the pupil; empty: nothing
    std::string MessageTitle; // empty: the application's title
};

enum class Operation { Addition, Subtraction };

// An addition or a subtraction written in columns: draws the operands, says how they and the result are written, judges
// the answer and keeps the score. It knows no window: boxes, highlights and the focus are the form's.
class ColumnExercise {
public:
    static constexpr OptionList DigitChoices { 1, 7 };
    static constexpr OptionList DecimalChoices { 0, 7 };

    // Draws from `random`, which must outlive the exercise. The first exercise is drawn by the first Generate().
    ColumnExercise(Operation operation, RandomSource& random);

    Int16 Digits = 3; // integer digits of each drawn operand
    Int16 Decimals = 2; // decimal places of each drawn operand
    double Operand1 = 0; // first addend, or minuend
    double Operand2 = 0; // second addend, or subtrahend
    numbrela::Score Score;

    // Draws both operands, each with `Digits` integer digits, the first of them not 0, and `Decimals` decimals, the
    // last of them not 0. A subtraction gets the greater operand on top. None of these touches `Score.Scorable`.
    void Generate();
    void GenerateAddition();
    void GenerateSubtraction();

    // The next exercise, which is scored again.
    void Continue();

    // The operands as they are shown after a draw.
    OperandTexts DrawnTexts() const;

    // The operands with blanks around them, so that their decimal commas stand under each other when both texts are
    // right-aligned in a fixed-pitch font. Both texts are equally long.
    OperandTexts AlignedTexts() const;

    // The sum or the difference. Throws RunTimeError::Overflow when a double cannot hold it.
    double Solution() const;

    // Judges what stands in the answer box. An answer is right if it differs from the solution by less than 10^-10.
    // Throws as Solution() does.
    Verdict Judge(std::string_view answer) const;

    // The text of the solution. From here on the exercise is not scored. Throws as Solution() does.
    std::string ShowSolution();

    // Takes an operand that the pupil typed. If the result would not fit a double, the operand is kept but not shown.
    OperandEntry EnterOperand1(std::string_view typed) { return enterOperand(Operand1, typed); }
    OperandEntry EnterOperand2(std::string_view typed) { return enterOperand(Operand2, typed); }

private:
    double drawWholeNumber(int digitCount);
    void makeLastDigitNonZero(double& operand);
    OperandEntry enterOperand(double& operand, std::string_view typed);

    Operation operation_;
    RandomSource& random_;
};

} // namespace numbrela
