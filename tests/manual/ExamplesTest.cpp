#include "activities/addsub/core/ColumnExercise.h"
#include "activities/compare/core/Comparison.h"
#include "activities/divide/core/DivisionExercise.h"
#include "activities/multiply/core/Multiplication.h"
#include "activities/placeadd/core/PlaceAndAdd.h"
#include "activities/powers10/core/PowersOfTen.h"
#include "activities/shopping/core/Money.h"
#include "activities/shopping/core/ShoppingTask.h"
#include "common/core/NumberText.h"
#include "tests/manual/Pages.h"
#include "tests/support/ScriptedRandom.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <regex>
#include <set>
#include <sstream>

// Each example of the manual is written once more by the program's own cores, from its operands, and must come out the
// same.
namespace numbrela::testing {

namespace {

using Lines = std::vector<std::string>;

Lines linesOf(const std::string& text)
{
    Lines lines;
    std::istringstream input(text);
    for (std::string line; std::getline(input, line);) {
        lines.push_back(line);
    }
    return lines;
}

std::string joined(const Lines& lines)
{
    std::string text;
    for (const std::string& line : lines) {
        text += (text.empty() ? "" : "\n") + line.substr(0, line.find_last_not_of(' ') + 1);
    }
    return text;
}

// What stands behind a sign of one character.
std::string behindSign(const std::string& line)
{
    const std::size_t begin = line.find_first_of("0123456789");
    return std::string(Trimmed(line.substr(std::min(begin, line.size()))));
}

// Amounts under each other, right-aligned behind a place for the sign, with rules between them. The numbers of lines
// above which there is a rule are given.
std::string inColumns(
    const Lines& texts, const std::string& sign, std::size_t lineOfSign, const std::set<std::size_t>& rules)
{
    int width = 0;
    for (const std::string& text : texts) {
        width = std::max(width, LengthInCharacters(text));
    }
    Lines lines;
    for (std::size_t index = 0; index < texts.size(); ++index) {
        if (rules.contains(index)) {
            lines.push_back(std::string(static_cast<std::size_t>(width) + 2, '-'));
        }
        lines.push_back((index == lineOfSign ? sign + ' ' : "  ") + PadLeft(texts[index], width));
    }
    return joined(lines);
}

bool isRecognised(const Example& example)
{
    return example.Kind.find("no reconocida") == std::string::npos;
}

// "no reconocida": the program does not take its own solution for an answer.
std::string inColumnForm(Operation operation, const std::string& sign, const Example& example)
{
    ScriptedRandom noChance({});
    ColumnExercise exercise(operation, noChance);
    const Lines given = linesOf(example.Text);
    EXPECT_TRUE(exercise.EnterOperand1(behindSign(given.at(0))).Accepted);
    EXPECT_TRUE(exercise.EnterOperand2(behindSign(given.at(1))).Accepted);
    const auto [upper, lower] = exercise.AlignedTexts();
    const std::string solution = exercise.ShowSolution();
    EXPECT_EQ(exercise.Judge(solution).Right, isRecognised(example)) << example.Place;
    return inColumns({ upper, lower, solution }, sign, 1, { 2 });
}

std::string addition(const Example& example)
{
    return inColumnForm(Operation::Addition, "+", example);
}

std::string subtraction(const Example& example)
{
    return inColumnForm(Operation::Subtraction, "-", example);
}

// "ceros ocultos": with the option that hides the rows of zeros. "no reconocida": the right result is not taken for
// one.
std::string multiplication(const Example& example)
{
    ScriptedRandom noChance({});
    Multiplication exercise(noChance);
    const Lines given = linesOf(example.Text);
    exercise.HideZeros = example.Kind.find("ceros ocultos") != std::string::npos;
    EXPECT_TRUE(exercise.EnterFactor1(behindSign(given.at(0))).Accepted);
    EXPECT_TRUE(exercise.EnterFactor2(behindSign(given.at(1))).Accepted);
    Lines texts { exercise.Factor1Text(), exercise.Factor2Text() };
    exercise.ShowFactors();
    const Multiplication::WorkedSolution solution = exercise.ShowSolution();
    texts.insert(texts.end(), solution.Rows.begin(), solution.Rows.end());
    texts.push_back(solution.Result);
    std::string answer = solution.Result;
    std::erase(answer, '.');
    EXPECT_EQ(exercise.Judge(answer, {}).Right, isRecognised(example)) << example.Place;
    return inColumns(texts, "×", 1, { 2, texts.size() - 1 });
}

int decimalsOf(const std::string& number)
{
    const std::size_t comma = number.find(',');
    return comma == std::string::npos ? 0 : static_cast<int>(number.size() - comma) - 1;
}

// "restas": with the subtractions written out; "cociente con 2 decimales".
std::string division(const Example& example)
{
    const Lines given = linesOf(example.Text);
    const std::size_t bar = given.at(0).find('|');
    std::string dividend(Trimmed(given.at(0).substr(0, bar)));
    const std::string divisor(Trimmed(given.at(0).substr(bar + 1)));
    const int decimals = decimalsOf(dividend);
    std::erase(dividend, ',');

    const int digits = static_cast<int>(dividend.size());
    ScriptedRandom random { DrawOfDigits(std::stod(dividend), digits),
        DrawOfDigits(std::stod(divisor), static_cast<int>(divisor.size())) };
    bool commaShift = false;
    DivisionExercise exercise(random, commaShift);
    exercise.DividendDigits = digits - decimals;
    exercise.DividendDecimals = decimals;
    exercise.DivisorDigits = static_cast<int>(divisor.size());
    const std::size_t quotientDecimals = example.Kind.find("cociente con ");
    if (quotientDecimals != std::string::npos) {
        exercise.QuotientDecimals = std::stoi(example.Kind.substr(quotientDecimals + 13));
    }
    exercise.ShowSubtractions = example.Kind.find("restas") != std::string::npos;
    exercise.GenerateDivision();
    const std::string quotient = exercise.ShowDivisionSolution();
    EXPECT_EQ(exercise.Judge(quotient).has_value(), quotientDecimals == std::string::npos);
    EXPECT_TRUE(exercise.Judge(quotient).value_or(Verdict { true, {} }).Right);

    Lines lines;
    for (int row = 0; row < std::max(2, exercise.Grid.WrittenRows()); ++row) {
        const std::u16string_view cells = exercise.Grid.Row(row);
        lines.push_back(std::string(cells.begin(), cells.end())
            + (row == 0        ? "| " + divisor
                    : row == 1 ? "| " + quotient
                               : std::string()));
    }
    return joined(lines);
}

std::string number(float value)
{
    return std::string(Trimmed(PriceText(value)));
}

// The column of prices and their sum, and then the banknotes, what is paid, and the change.
std::string shopping(const Example& example)
{
    ShoppingTask task;
    std::map<std::string, int> products;
    for (const std::string& line : linesOf(example.Text)) {
        if (line.starts_with('-')) {
            break;
        }
        const std::string price = behindSign(line);
        if (!products.contains(price)) {
            products[price] = AddProduct(task.Catalogue,
                { std::string_view(price), ParsePrice(price).value_or(0.0F), std::string_view("Kiosko") });
        }
        task.TakeProduct(products[price]);
    }
    std::string text;
    for (int step = 0; step < 2; ++step) {
        const std::string answer = step == 0 ? "" : number(task.BasketTotal);
        const PayOutcome outcome = task.Continue(answer);
        EXPECT_EQ(outcome.Message, "");
        const std::string column = task.ColumnAboveResult().Text;
        const std::string result = number(step == 0 ? task.BasketTotal : task.NotesGiven - task.AmountPaid);
        Lines lines;
        for (const std::string& line : linesOf(column)) {
            const bool signedLine = line.starts_with('+') || line.starts_with('-');
            lines.push_back(signedLine ? line.substr(0, 1) + ' ' + line.substr(1) : "  " + line);
        }
        lines.emplace_back(8, '-');
        lines.push_back("  " + PadLeft(result, 6));
        text += (step == 0 ? "" : "\n\n") + joined(lines);
        if (step == 1) {
            EXPECT_EQ(task.Continue(result).Message, "");
            EXPECT_EQ(task.PayStep, 4);
        }
    }
    return text;
}

// "5,7 × 100 = 570", line by line.
std::string powersOfTen(const Example& example)
{
    constexpr double anyDigits = 0.5;
    Lines lines;
    for (const std::string& given : linesOf(example.Text)) {
        std::istringstream words(given);
        std::string factor1;
        std::string sign;
        std::string factor2;
        words >> factor1 >> sign >> factor2;
        ScriptedRandom random { anyDigits, anyDigits, anyDigits, sign == "×" ? 0.0 : 0.9 };
        PowersOfTen exercise(random);
        exercise.NewPowerOfTenExercise();
        exercise.EnterFactor1(factor1);
        exercise.EnterFactor2(factor2);
        EXPECT_TRUE(exercise.Judge(exercise.Solution()).Right);
        lines.push_back(
            exercise.Factor1Text() + exercise.Sign() + exercise.Factor2Text() + " = " + exercise.Solution());
    }
    return joined(lines);
}

// The six numbers as they stand on the buttons, the greatest and the smallest.
std::string comparison(const Example& example)
{
    const std::string digits = [&] {
        std::string first = example.Text.substr(0, 5);
        return first.erase(1, 1);
    }();
    const std::string pool = "12345679";
    const auto ask = [&](double which) {
        std::vector<double> draws;
        for (const char digit : digits) {
            draws.push_back((static_cast<double>(pool.find(digit)) + 0.5) / 10);
        }
        draws.push_back(which);
        return draws;
    };
    Lines lines;
    std::string answers;
    for (const double which : { 0.0, 0.9 }) {
        ScriptedRandom random(ask(which));
        Comparison question(random);
        question.NewComparison();
        const auto& numbers = question.Captions;
        lines = { numbers[0] + "   " + numbers[2] + "   " + numbers[4],
            numbers[1] + "   " + numbers[3] + "   " + numbers[5] };
        const std::string& answer = numbers[static_cast<std::size_t>(static_cast<int>(question.CorrectButton))];
        answers += '\n' + question.Instruction.substr(question.Instruction.rfind(' ') + 1) + ": " + answer;
    }
    return joined(lines) + answers;
}

// The numbers in one line, and then each in its place.
std::string placeAndAdd(const Example& example)
{
    ScriptedRandom noChance({});
    PlaceAndAdd exercise(noChance);
    std::istringstream words(linesOf(example.Text).at(0));
    std::size_t count = 0;
    exercise.AddendSum = 0;
    for (std::string word; words >> word;) {
        if (word != "+") {
            exercise.Addends.at(count) = ParsePrice(word).value_or(0.0F);
            exercise.AddendSum += exercise.Addends.at(count);
            ++count;
        }
    }
    exercise.AddendCount = static_cast<int>(count);
    const PlaceAndAdd::Placement placement = exercise.Solution();
    const bool isWhole = placement.Sum.find(',') == std::string::npos;
    EXPECT_EQ(exercise.Judge(placement.Sum, {}).Right, isWhole);
    EXPECT_EQ(isRecognised(example), isWhole) << example.Place;
    Lines lines { exercise.DataLine(), "" };
    for (const std::string& addend : placement.Addends) {
        lines.push_back((lines.size() == 2 ? "  " : "+ ") + addend);
    }
    lines.push_back("= " + placement.Sum);
    return joined(lines);
}

// "mal, mal, bien, solución, bien": what is pressed, and the score line after it.
std::string score(const Example& example)
{
    const std::string answers = linesOf(example.Text).at(0);
    Score counts;
    std::istringstream words(answers);
    for (std::string word; std::getline(words, word, ',');) {
        const std::string_view act = Trimmed(word);
        EXPECT_TRUE(act == "bien" || act == "mal" || act == "solución") << act;
        if (act == "solución") {
            counts.Scorable = false;
        } else {
            counts.Count(act == "bien");
        }
    }
    return answers + '\n' + counts.Line();
}

Verdict columnVerdict(
    Operation operation, const std::string& first, const std::string& second, const std::string& answer)
{
    ScriptedRandom noChance({});
    ColumnExercise exercise(operation, noChance);
    EXPECT_TRUE(exercise.EnterOperand1(first).Accepted);
    EXPECT_TRUE(exercise.EnterOperand2(second).Accepted);
    return exercise.Judge(answer);
}

Verdict productVerdict(const std::string& first, const std::string& second, const std::string& answer)
{
    ScriptedRandom noChance({});
    Multiplication exercise(noChance);
    EXPECT_TRUE(exercise.EnterFactor1(first).Accepted);
    EXPECT_TRUE(exercise.EnterFactor2(second).Accepted);
    return exercise.Judge(answer, {});
}

// "347 + 285 = 522: resultado incorrecto", line by line: what is said of an answer.
std::string verdicts(const Example& example)
{
    Lines lines;
    for (const std::string& given : linesOf(example.Text)) {
        std::istringstream words(given.substr(0, given.find(':')));
        std::string first;
        std::string sign;
        std::string second;
        std::string equals;
        std::string answer;
        words >> first >> sign >> second >> equals >> answer;
        const Verdict verdict = sign == "×"
            ? productVerdict(first, second, answer)
            : columnVerdict(sign == "+" ? Operation::Addition : Operation::Subtraction, first, second, answer);
        lines.push_back(first + ' ' + sign + ' ' + second + " = " + answer + ": " + std::string(Trimmed(verdict.Text)));
    }
    return joined(lines);
}

struct Kind {
    const char* Name;
    std::function<std::string(const Example&)> Write;
};

const std::vector<Kind>& kinds()
{
    static const std::vector<Kind> all {
        { "suma", addition },
        { "resta", subtraction },
        { "multiplicación", multiplication },
        { "división", division },
        { "compra", shopping },
        { "por 10", powersOfTen },
        { "mayor y menor", comparison },
        { "coloca y suma", placeAndAdd },
        { "marcador", score },
        { "respuesta", verdicts },
    };
    return all;
}

TEST(ManualExamplesTest, EachWorkedExampleIsWhatTheProgramWorksOut)
{
    std::map<std::string, int> seen;
    for (const Page& page : Pages()) {
        for (const Example& example : page.Examples) {
            if (example.Kind == "text") {
                continue; // what is pasted into a terminal or a register
            }
            const auto kind = std::find_if(
                kinds().begin(), kinds().end(), [&](const Kind& each) { return example.Kind.starts_with(each.Name); });
            ASSERT_NE(kind, kinds().end()) << example.Place << " is of an unknown kind: " << example.Kind;
            ++seen[kind->Name];
            EXPECT_EQ(example.Text, kind->Write(example)) << example.Place;
        }
    }
    for (const Kind& kind : kinds()) {
        EXPECT_GE(seen[kind.Name], 1) << "no example of " << kind.Name;
    }
}

// In an example it would be worked out; in a sentence nobody sees that it is wrong.
TEST(ManualExamplesTest, NoCalculationStandsOutsideOfAnExample)
{
    static const std::regex calculation("[0-9] (\\+|×|÷|=) [0-9]");
    for (const Page& page : Pages()) {
        std::smatch found;
        EXPECT_FALSE(std::regex_search(page.Prose, found, calculation)) << page.Name << " has " << found.str();
    }
}

// The shares of exercises of place and add that the page for teachers tells of.
struct Shares {
    double Whole = 0; // of all exercises, those whose sum has no decimals
    double Refused = 0; // of those, the ones whose sum is not taken for right
    double Inexact = 0; // of all, those whose solution is not the sum
};

long long thousandthsOf(const std::string& number)
{
    std::string digits = number.substr(0, number.find(','));
    digits += number.substr(std::min(number.size(), digits.size() + 1));
    for (int decimals = decimalsOf(number); decimals < 3; ++decimals) {
        digits += '0';
    }
    return decimalsOf(number) > 3 ? -1 : std::stoll(digits);
}

Shares sharesOf(int addendCount, int maxDigits)
{
    constexpr int exercises = 20000;
    constexpr int anySeed = 1;
    SeededRandom random(anySeed);
    PlaceAndAdd exercise(random);
    exercise.AddendCount = addendCount;
    exercise.MaxDigits = maxDigits;
    int whole = 0;
    int refused = 0;
    int inexact = 0;
    for (int count = 0; count < exercises; ++count) {
        exercise.NewPlaceAndAdd();
        long long sum = 0;
        std::istringstream words(exercise.DataLine());
        for (std::string word; words >> word;) {
            sum += word == "+" ? 0 : thousandthsOf(word);
        }
        const bool isWhole = sum % 1000 == 0;
        whole += isWhole ? 1 : 0;
        refused += isWhole && !exercise.Judge(std::to_string(sum / 1000), {}).Right ? 1 : 0;
        inexact += thousandthsOf(std::string(Trimmed(exercise.Solution().Sum))) != sum ? 1 : 0;
    }
    return { static_cast<double>(whole) / exercises, static_cast<double>(refused) / whole,
        static_cast<double>(inexact) / exercises };
}

TEST(ManualExamplesTest, PlaceAndAddHasAsFewWholeSumsAsThePageForTeachersSays)
{
    const Shares atFirst = sharesOf(4, 3);
    EXPECT_NEAR(1 / atFirst.Whole, 20, 3); // "una de cada veinte"
    EXPECT_NEAR(1 / atFirst.Refused, 10, 2); // "una de cada diez"
    EXPECT_NEAR(atFirst.Inexact, 0.035, 0.005); // "tres o cuatro de cada cien"
    const Shares most = sharesOf(2, 3);
    EXPECT_NEAR(1 / most.Whole, 10, 1); // "una de cada diez"
    EXPECT_EQ(most.Refused, 0); // "todas se reconocen"
}

} // namespace

} // namespace numbrela::testing
