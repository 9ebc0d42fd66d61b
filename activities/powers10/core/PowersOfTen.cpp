#include "activities/powers10/core/PowersOfTen.h"

#include "common/core/Arithmetic.h"
#include "common/core/NumberText.h"
#include "common/core/RunTimeError.h"

#include <cmath>

namespace numbrela {

namespace {

std::string refusalOf(std::string_view typed)
{
    if (Trimmed(typed).empty()) {
        return "No se ha escrito ningún número.";
    }
    return "«" + std::string(typed) + "» no es un número que sirva de factor.";
}

double typedFactor(std::string_view typed)
{
    const auto number = ParseTypedNumber(typed);
    if (!number) {
        throw RunTimeError(RunTimeError::Kind::TypeMismatch, refusalOf(typed));
    }
    return RequireFinite(*number);
}

} // namespace

PowersOfTen::PowersOfTen(RandomSource& random)
    : random_(random)
{
}

int PowersOfTen::drawOneTo(int greatest)
{
    return static_cast<int>(greatest * random_.Next()) + 1;
}

// Numbers are drawn from 1 on, and the one with a digit too many is reduced by 8: 10 becomes 2, 100 becomes 92.
double PowersOfTen::drawNumber()
{
    const double tooLong = PowerOfTen(Digits1);
    const double number = std::floor(tooLong * random_.Next()) + 1;
    return number == tooLong ? number - 8 : number;
}

void PowersOfTen::NewPowerOfTenExercise()
{
    const double number = drawNumber();
    Factor1 = number / PowerOfTen(drawOneTo(Digits1));
    Factor2 = PowerOfTen(drawOneTo(Digits2));
    multiplies_ = random_.Next() < 0.5;
    Product = productOf(Factor1, Factor2);
}

double PowersOfTen::productOf(double factor1, double factor2) const
{
    if (!multiplies_ && factor2 == 0) {
        throw RunTimeError(RunTimeError::Kind::InvalidArgument, "No se puede dividir entre 0.");
    }
    const double product = multiplies_ ? factor2 * factor1 : factor1 / factor2;
    if (!std::isfinite(product)) {
        throw RunTimeError(RunTimeError::Kind::Overflow, "El resultado de la operación es demasiado grande.");
    }
    return product;
}

std::string PowersOfTen::Factor1Text() const
{
    return PlainDecimalText(Factor1);
}

std::string PowersOfTen::Factor2Text() const
{
    return PlainDecimalText(Factor2);
}

std::string PowersOfTen::Solution() const
{
    return PlainDecimalText(Product);
}

Verdict PowersOfTen::Judge(std::string_view answer) const
{
    constexpr double tolerance = 1e-8;
    if (std::fabs(Product - ParseCommaNumber(answer)) >= tolerance) {
        return { false, "Resultado incorrecto " };
    }
    return { true, "Resultado correcto " };
}

void PowersOfTen::EnterFactor1(std::string_view typed)
{
    const double factor = typedFactor(typed);
    Product = productOf(factor, Factor2);
    Factor1 = factor;
}

void PowersOfTen::EnterFactor2(std::string_view typed)
{
    const double factor = typedFactor(typed);
    Product = productOf(Factor1, factor);
    Factor2 = factor;
}

} // namespace numbrela
