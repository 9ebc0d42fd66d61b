#include "activities/divide/core/DivisionExercise.h"

#include "activities/divide/core/WorkedDivision.h"
#include "common/core/Arithmetic.h"
#include "common/core/NumberText.h"
#include "common/core/RunTimeError.h"

#include <algorithm>
#include <cmath>

namespace numbrela {

namespace {

constexpr int cellsBesideDigits = WorkingGrid::BlankBefore + 1 + WorkingGrid::Margin; // one for the comma

constexpr const char* tooManyDigits = "El número tiene demasiadas cifras.";
constexpr const char* tooManyDigitsDrawn = "El número tiene demasiadas cifras. Elija menos en el menú Opciones.";

// The cells that a row has for so many digits. The paper is at most 198 cells wide.
int lineWidthFor(int digits, const char* complaint)
{
    constexpr int mostCells = 198;
    if (digits + cellsBesideDigits > mostCells) {
        throw RunTimeError(RunTimeError::Kind::Overflow, complaint);
    }
    return digits + cellsBesideDigits;
}

// What a pupil typed as dividend or divisor.
struct TypedNumber {
    double WholePart;
    int Length; // in characters, signs and commas included
};

std::optional<TypedNumber> readTyped(std::string_view typed)
{
    const double value = LeadingNumber(typed);
    if (value == 0) {
        return std::nullopt;
    }
    const double wholePart = std::trunc(RequireFinite(value)) + 0.0; // of -0.9 it is 0, not -0
    return TypedNumber { wholePart, LengthInCharacters(Trimmed(typed)) };
}

// A difference equal to the tolerance is too large. It may come out slightly smaller, because binary numbers only
// approximate decimal ones.
bool isWithin(double difference, double tolerance)
{
    constexpr double roundingError = 1e-6;
    return difference < tolerance * (1 - roundingError);
}

} // namespace

DivisionExercise::DivisionExercise(RandomSource& random, bool& commaShift)
    : Grid(commaShift)
    , random_(random)
{
}

void DivisionExercise::GenerateDivision()
{
    const int lineWidth = lineWidthFor(DividendDigits + DividendDecimals + QuotientDecimals, tooManyDigitsDrawn);
    double dividend = drawWholeNumber(DividendDigits + DividendDecimals);
    if (DividendDecimals >= 1 && PlainDecimalText(dividend).back() == '0') {
        dividend += std::trunc(random_.Next() * 8) + 1;
    }
    dividend /= PowerOfTen(DividendDecimals);
    const double divisor = drawWholeNumber(DivisorDigits);

    Dividend = dividend == PowerOfTen(DividendDigits) ? dividend - 1 : dividend;
    Divisor = divisor == PowerOfTen(DivisorDigits) ? divisor - 1 : divisor;
    const std::string text = DividendText();
    const std::size_t comma = text.find(',');
    Grid.LineWidth = lineWidth;
    Grid.CommaColumn = comma == std::string::npos ? -1 : static_cast<int>(comma) + WorkingGrid::BlankBefore;
    Grid.Begin(text);
    Score.Scorable = true;
}

// From 10^(digits - 1) + 1 to 10^digits, both included.
double DivisionExercise::drawWholeNumber(int digits)
{
    const double tooLarge = PowerOfTen(digits);
    if (std::isinf(tooLarge)) {
        throw RunTimeError(RunTimeError::Kind::Overflow, tooManyDigitsDrawn);
    }
    double number = 0;
    do {
        number = std::trunc(tooLarge * random_.Next()) + 1;
    } while (number <= PowerOfTen(digits - 1));
    return number;
}

std::string DivisionExercise::DividendText() const
{
    return PlainDecimalText(Dividend);
}

std::string DivisionExercise::DivisorText() const
{
    return PlainDecimalText(Divisor);
}

std::string DivisionExercise::Statement() const
{
    return DividendText() + " ÷ " + DivisorText();
}

void DivisionExercise::ClearWorking()
{
    Grid.Begin(DividendText());
}

int DivisionExercise::scale() const
{
    return std::max<int>(DividendDecimals, QuotientDecimals);
}

// What the last row before the first blank one is worth: its last digit stands under the last decimal.
double DivisionExercise::lastRemainder() const
{
    double remainder = 0;
    for (int row = 0; !Grid.IsBlankRow(row); ++row) {
        remainder = Grid.RowValue(row) / PowerOfTen(scale());
    }
    return remainder;
}

std::optional<Verdict> DivisionExercise::Judge(std::string_view quotient) const
{
    if (QuotientDecimals > 0) {
        return std::nullopt;
    }
    const double given = ParseFirstCommaNumber(quotient) * Divisor + lastRemainder();
    const bool right = isWithin(std::fabs(Dividend - given), 1 / PowerOfTen(scale() + 1));
    return Verdict { right, right ? "resultado correcto" : "Resultado incorrecto" };
}

std::string DivisionExercise::ShowDivisionSolution()
{
    const std::u16string_view cells = Grid.DividendCells();
    std::string digits(cells.begin(), cells.end());
    if (const std::size_t comma = digits.find(','); comma != std::string::npos) {
        digits.erase(comma, 1);
    }
    const WorkedDivision worked
        = WorkOut({ digits, Divisor, DividendDigits, DividendDecimals, QuotientDecimals, ShowSubtractions });
    for (const WorkedLine& line : worked.Lines) {
        Grid.WriteWorkingLine(line.Text, line.Column, line.Row);
    }
    Grid.MoveCaretToWorking();
    Score.Scorable = false;
    return worked.Quotient;
}

bool DivisionExercise::EnterDividend(std::string_view typed)
{
    const auto number = readTyped(typed);
    if (!number) {
        return false;
    }
    const int lineWidth = lineWidthFor(number->Length, tooManyDigits);
    Dividend = number->WholePart;
    DividendDigits = number->Length;
    Grid.LineWidth = lineWidth;
    Grid.Begin(DividendText());
    return true;
}

bool DivisionExercise::EnterDivisor(std::string_view typed)
{
    const auto number = readTyped(typed);
    if (!number || number->WholePart == 0) { // no division by zero
        return false;
    }
    DivisorDigits = number->Length;
    Divisor = number->WholePart;
    return true;
}

} // namespace numbrela
