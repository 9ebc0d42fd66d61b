#include "activities/multiply/core/Multiplication.h"

#include "common/core/RunTimeError.h"

#include "tests/fuzz/FuzzInput.h"
#include "tests/fuzz/TypedNumber.h"
#include "tests/support/KindThrownBy.h"
#include "tests/support/Schoolbook.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// What a pupil can do with a multiplication, a byte for each act; the first byte seeds the draws.
//
//   O 1 1 1 1   options: items of both factors' digits and decimals; then a new multiplication
//   N           new multiplication
//   Z           hides or shows the rows of zeros
//   T...        times tables, up to the end of the line
//   A..., B...  a first, a second factor typed, up to the end of the line
//   J...        "Hecho" with the result up to the end of the line
//   S           solution
namespace numbrela::testing {

namespace {

// The product of two numbers of any length as it is written: "-12,5" and "80,0" make "-1.000,00".
std::string productOnPaper(const std::string& factor1, const std::string& factor2, int decimals)
{
    std::string product = WithoutFirstZeros(ProductOfDigits(Without(factor1, ",-"), Without(factor2, ",-")));
    const bool negative = product != "0" && (factor1.front() == '-') != (factor2.front() == '-');
    const auto decimalCount = static_cast<std::size_t>(decimals);
    product.insert(0, decimalCount + 1 - std::min(product.size(), decimalCount + 1), '0');
    product.insert(product.size() - decimalCount, decimals > 0 ? "," : "");
    return GroupedInThousands((negative ? "-" : "") + product);
}

class MultiplicationRun {
public:
    explicit MultiplicationRun(FuzzInput input)
        : input_(input)
        , random_(input_.TakeByte())
    {
    }

    void Run()
    {
        draw();
        while (!input_.AtEnd()) {
            act(static_cast<char>(input_.TakeByte()));
            checkLayout();
        }
    }

private:
    void act(char byte)
    {
        static constexpr std::array<Act<MultiplicationRun>, 8> acts { {
            { 'O', [](auto& run) { run.chooseOptions(); } },
            { 'N', [](auto& run) { run.draw(); } },
            { 'Z', [](auto& run) { run.exercise_.HideZeros = !run.exercise_.HideZeros; } },
            { 'T', [](auto& run) { run.chooseTables(run.input_.TakeLine()); } },
            { 'A', [](auto& run) { run.enter(run.exercise_.Factor1, &Multiplication::EnterFactor1); } },
            { 'B', [](auto& run) { run.enter(run.exercise_.Factor2, &Multiplication::EnterFactor2); } },
            { 'J', [](auto& run) { run.judge(run.input_.TakeLine()); } },
            { 'S', [](auto& run) { run.solve(); } },
        } };
        Do(acts, byte, *this);
    }

    void chooseOptions()
    {
        exercise_.Digits1 = input_.TakeChoice(Multiplication::DigitChoices);
        exercise_.Digits2 = input_.TakeChoice(Multiplication::DigitChoices);
        exercise_.Decimals1 = input_.TakeChoice(Multiplication::DecimalChoices);
        exercise_.Decimals2 = input_.TakeChoice(Multiplication::DecimalChoices);
        draw();
    }

    void draw()
    {
        exercise_.NewMultiplication();
        checkDrawnFactor(exercise_.Factor1Text(), exercise_.Digits1, exercise_.Decimals1, true);
        checkDrawnFactor(exercise_.Factor2Text(), exercise_.Digits2, exercise_.Decimals2, exercise_.AnyDigits);
        if (!exercise_.AnyDigits) {
            const std::string digits = Without(exercise_.Factor2Text(), ",");
            EXPECT_EQ(digits.find_first_not_of("0" + exercise_.SelectedTables), std::string::npos) << digits;
        }
    }

    static void checkDrawnFactor(const std::string& text, int digits, int decimals, bool anyDigits)
    {
        const std::size_t comma = std::min(text.find(','), text.size());
        EXPECT_EQ(static_cast<int>(comma), digits) << text;
        EXPECT_EQ(static_cast<int>(text.size() - std::min(comma + 1, text.size())), decimals) << text;
        EXPECT_NE(text.front(), '0') << text;
        EXPECT_TRUE(text.back() != '0' || (!anyDigits && decimals == 0)) << text;
    }

    void chooseTables(const std::string& line)
    {
        std::string tables;
        for (char table = '1'; table <= '9'; ++table) {
            tables += line.find(table) == std::string::npos ? "" : std::string(1, table);
        }
        exercise_.ChooseTables(tables);
        draw();
    }

    void enter(double& factor, Multiplication::FactorEntry (Multiplication::*enterFactor)(std::string_view))
    {
        const std::string typed = input_.TakeLine();
        const double before = factor;
        const double productBefore = exercise_.Product;
        const double other = &factor == &exercise_.Factor1 ? exercise_.Factor2 : exercise_.Factor1;
        const std::optional<double> number = TypedNumberOnPaper(typed);
        const Multiplication::FactorEntry entry = (exercise_.*enterFactor)(typed);
        EXPECT_EQ(entry.Accepted, number && std::isfinite(*number) && std::isfinite(*number * other)) << typed;
        EXPECT_EQ(entry.Accepted, entry.Message.empty());
        if (!entry.Accepted) {
            EXPECT_EQ(factor, before);
            EXPECT_EQ(exercise_.Product, productBefore);
            return;
        }
        EXPECT_EQ(factor, number);
        EXPECT_EQ(exercise_.Product, exercise_.Factor1 * exercise_.Factor2);
        EXPECT_TRUE(std::isfinite(exercise_.Product));
        checkPlaces(exercise_.Factor1Text(), exercise_.Digits1, exercise_.Decimals1);
        checkPlaces(exercise_.Factor2Text(), exercise_.Digits2, exercise_.Decimals2);
    }

    static void checkPlaces(const std::string& text, int digits, int decimals)
    {
        EXPECT_EQ(static_cast<int>(text.size()), digits + decimals + (decimals > 0 ? 1 : 0)) << text;
        EXPECT_EQ(decimals > 0 ? text.find(',') : text.size(), static_cast<std::size_t>(digits)) << text;
    }

    void checkLayout()
    {
        const auto zeros = static_cast<int>(shownFactor2_.size() - Without(shownFactor2_, "0").size());
        const int digits = exercise_.Digits2 + exercise_.Decimals2;
        EXPECT_EQ(exercise_.RowCount(), exercise_.HideZeros ? digits - zeros : digits);
        shownFactor2_ = exercise_.ShowFactors()[1];
        EXPECT_EQ(shownFactor2_, exercise_.Factor2Text());
        EXPECT_EQ(exercise_.HasSingleRow(), digits == 1);
    }

    void judge(const std::string& result)
    {
        const double value = CommaNumberAtTheStart(result);
        if (std::isinf(value)) {
            EXPECT_EQ(KindThrownBy([&] { exercise_.Judge(result, ""); }), RunTimeError::Kind::Overflow);
            return;
        }
        const bool right = std::fabs(exercise_.Product - value) < 1e-12;
        Verdict verdict = exercise_.Judge(result, "");
        EXPECT_EQ(verdict.Right, right);
        const Verdict again = exercise_.Judge(result, verdict.Text);
        EXPECT_EQ(again.Right, right);
        EXPECT_EQ(again.Text, " " + verdict.Text);
        EXPECT_EQ(exercise_.Judge(result, again.Text).Text, verdict.Text);
    }

    void solve()
    {
        const std::string factor1 = exercise_.Factor1Text();
        const std::string factor2 = exercise_.Factor2Text();
        const Multiplication::WorkedSolution solution = exercise_.ShowSolution();
        EXPECT_FALSE(exercise_.Score.Scorable);
        EXPECT_EQ(solution.Result, productOnPaper(factor1, factor2, exercise_.Decimals1 + exercise_.Decimals2));
        EXPECT_EQ(solution.Rows, PartialProducts(factor1, factor2, exercise_.HideZeros));
    }

    FuzzInput input_;
    SeededRandom random_;
    Multiplication exercise_ { random_ };
    std::string shownFactor2_;
};

} // namespace

void Check(FuzzInput input)
{
    MultiplicationRun(input).Run();
}

} // namespace numbrela::testing
