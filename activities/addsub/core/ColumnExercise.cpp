#include "activities/addsub/core/ColumnExercise.h"

#include "common/core/Arithmetic.h"
#include "common/core/NumberText.h"
#include "common/core/RunTimeError.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace numbrela {

namespace {

// Where an addition and a subtraction differ.
struct OperationRules {
    void (ColumnExercise::*Generate)();
    double (*Solve)(double operand1, double operand2);
    const char* TooLarge;
};

const OperationRules& rulesOf(Operation operation)
{
    static const OperationRules addition {
        &ColumnExercise::GenerateAddition,
        [](double addend1, double addend2) { return addend1 + addend2; },
        "La suma de los datos introducidos  produce un resultado demasiado grande",
    };
    static const OperationRules subtraction {
        &ColumnExercise::GenerateSubtraction,
        [](double minuend, double subtrahend) { return minuend - subtrahend; },
        "La diferencia de los datos introducidos  produce un resultado demasiado grande",
    };
    return operation == Operation::Addition ? addition : subtraction;
}

int lengthOfInteger(const std::string& text)
{
    return static_cast<int>(std::min(text.find(','), text.size()));
}

std::string blanks(int count)
{
    return std::string(static_cast<std::size_t>(std::max(count, 0)), ' ');
}

} // namespace

ColumnExercise::ColumnExercise(Operation operation, RandomSource& random)
    : operation_(operation)
    , random_(random)
{
}

void ColumnExercise::Generate()
{
    (this->*rulesOf(operation_).Generate)();
}

void ColumnExercise::GenerateAddition()
{
    Operand1 = drawWholeNumber(Digits + Decimals);
    Operand2 = drawWholeNumber(Digits + Decimals);
    if (Decimals > 0) {
        makeLastDigitNonZero(Operand1);
        makeLastDigitNonZero(Operand2);
    }
    Operand1 /= PowerOfTen(Decimals);
    Operand2 /= PowerOfTen(Decimals);
}

void ColumnExercise::GenerateSubtraction()
{
    GenerateAddition();
    if (Operand2 > Operand1) {
        std::swap(Operand1, Operand2);
    }
}

double ColumnExercise::drawWholeNumber(int digitCount)
{
    const double smallest = PowerOfTen(digitCount - 1);
    const double tooLarge = PowerOfTen(digitCount);
    double number = 0;
    do {
        number = std::floor(tooLarge * random_.Next()) + 1;
    } while (number < smallest || number == tooLarge);
    return number;
}

void ColumnExercise::makeLastDigitNonZero(double& operand)
{
    if (std::fmod(operand, 10) == 0) {
        operand += std::floor(random_.Next() * 9) + 1;
    }
}

void ColumnExercise::Continue()
{
    Generate();
    Score.Scorable = true;
}

OperandTexts ColumnExercise::DrawnTexts() const
{
    return { FormatDisplayNumber(Operand1), FormatDisplayNumber(Operand2) };
}

OperandTexts ColumnExercise::AlignedTexts() const
{
    const auto [upper, lower] = DrawnTexts();
    const int upperInteger = lengthOfInteger(upper);
    const int lowerInteger = lengthOfInteger(lower);
    const int upperDecimals = static_cast<int>(upper.size()) - upperInteger;
    const int lowerDecimals = static_cast<int>(lower.size()) - lowerInteger;
    return {
        blanks(lowerInteger - upperInteger) + upper + blanks(lowerDecimals - upperDecimals),
        blanks(upperInteger - lowerInteger) + lower + blanks(upperDecimals - lowerDecimals),
    };
}

double ColumnExercise::Solution() const
{
    const double solution = rulesOf(operation_).Solve(Operand1, Operand2);
    if (!std::isfinite(solution)) {
        throw RunTimeError(RunTimeError::Kind::Overflow, rulesOf(operation_).TooLarge);
    }
    return solution;
}

Verdict ColumnExercise::Judge(std::string_view answer) const
{
    constexpr double tolerance = 1e-10;
    const bool right = std::fabs(ParseDisplayNumber(answer) - Solution()) < tolerance;
    return { right, right ? "resultado correcto" : "resultado incorrecto" };
}

std::string ColumnExercise::ShowSolution()
{
    std::string solution = FormatDisplayNumber(Solution());
    Score.Scorable = false;
    return solution;
}

OperandEntry ColumnExercise::enterOperand(double& operand, std::string_view typed)
{
    const std::optional<double> number = ParseTypedNumber(typed);
    if (!number) {
        return {};
    }
    if (std::isinf(*number)) {
        return { false, "El dato introducido no es válido", "" };
    }
    operand = *number;
    if (!std::isfinite(rulesOf(operation_).Solve(Operand1, Operand2))) {
        return { false, rulesOf(operation_).TooLarge, "Error" };
    }
    return { true, "", "" };
}

} // namespace numbrela
