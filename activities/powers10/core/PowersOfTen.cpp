#include "activities/powers10/core/PowersOfTen.h"

#include "common/core/Arithmetic.h"
#include "common/core/NumberText.h"
#include "common/core/RunTimeError.h"

#include <cmath>

namespace numbrela {

namespace {

constexpr const char* times = " × ";
constexpr const char* dividedBy = " ÷ ";

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
    Sign = random_.Next() < 0.5 ? times : dividedBy;
    computeProduct();
}

void PowersOfTen::computeProduct()
{
    if (Sign != times && Factor2 == 0) {
        throw RunTimeError(RunTimeError::Kind::InvalidArgument, "No se puede dividir entre 0.");
    }
    Product = Sign == times ? Factor2 * Factor1 : Factor1 / Factor2;
    if (!std::isfinite(Product)) {
        throw RunTimeError(RunTimeError::Kind::Overflow, "El resultado de la operación es demasiado grande.");
    }
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
    Factor1 = typedFactor(typed);
    computeProduct();
}

void PowersOfTen::EnterFactor2(std::string_view typed)
{
    Factor2 = typedFactor(typed);
    computeProduct();
}

} // namespace numbrela
