#pragma once

#include "common/core/Int16.h"
#include "common/core/OptionList.h"
#include "common/core/Random.h"
#include "common/core/Verdict.h"

#include <string>
#include <string_view>

namespace numbrela {

// A decimal number to be multiplied or divided by 10, 100 or 1000: draws the exercise, says how it is written and
// judges the answer. Nothing is counted. Boxes, highlights and the focus are the form's.
class PowersOfTen {
public:
    static constexpr OptionList Digits1Choices { 1, 4 };
    static constexpr OptionList Digits2Choices { 2, 4 }; // digits of the greatest power: 4 stands for 1000

    // Draws from `random`, which must outlive the exercise. The first exercise is drawn by the first
    // NewPowerOfTenExercise().
    explicit PowersOfTen(RandomSource& random);

    Int16 Digits1 = 2; // digits of the number before its comma is set
    Int16 Digits2 = 3; // exponent of the greatest power of ten
    double Factor1 = 0; // the decimal number
    double Factor2 = 0; // the power of ten
    double Product = 0; // Factor2 × Factor1, or Factor1 ÷ Factor2

    // The digits of the greatest power of ten, one of Digits2Choices.
    int Digits2Shown() const { return Digits2 + 1; }

    // Draws a number whose comma is moved 1 to `Digits1` places, a power of ten up to 10^`Digits2`, and the sign
    // between them.
    void NewPowerOfTenExercise();

    // The sign between the factors with a blank on each side.
    std::string Sign() const { return multiplies_ ? " × " : " ÷ "; }

    // How the factors and the result are written: plain, with a decimal comma.
    std::string Factor1Text() const;
    std::string Factor2Text() const;
    std::string Solution() const;

    // Judges what stands in the answer box; an empty box counts as 0. An answer is right if it differs from the product
    // by less than 10^-8.
    Verdict Judge(std::string_view answer) const;

    // Takes a factor that someone typed, and works out the product anew. The second need not be a power of ten.
    // Throws RunTimeError, and changes nothing: TypeMismatch for what is no number, InvalidArgument for a division by
    // 0, Overflow for a factor or a product that a double cannot hold.
    void EnterFactor1(std::string_view typed);
    void EnterFactor2(std::string_view typed);

private:
    int drawOneTo(int greatest);
    double drawNumber();
    double productOf(double factor1, double factor2) const;

    RandomSource& random_;
    bool multiplies_ = true;
};

} // namespace numbrela
