#include "activities/addsub/core/ColumnExercise.h"
#include "activities/compare/core/Comparison.h"
#include "activities/divide/core/DivisionExercise.h"
#include "activities/multiply/core/Multiplication.h"
#include "activities/placeadd/core/PlaceAndAdd.h"
#include "activities/powers10/core/PowersOfTen.h"
#include "activities/shopping/core/Money.h"
#include "activities/shopping/core/ShoppingTask.h"
#include "common/core/NumberText.h"
#include "common/core/RunTimeError.h"
#include "tests/manual/Pages.h"
#include "tests/support/ScriptedRandom.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <utility>

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

// The number counted in units of that decimal place; -1 when it has more decimals.
long long unitsOf(const std::string& number, int decimals)
{
    std::string digits = number;
    std::erase(digits, ',');
    const int missing = decimals - decimalsOf(number);
    return missing < 0 ? -1 : std::stoll(digits + std::string(static_cast<std::size_t>(missing), '0'));
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

// "marcador mal, mal, bien, solución, bien": what is pressed, and the score line after it.
std::string score(const Example& example)
{
    Score counts;
    std::istringstream words(example.Kind.substr(std::string_view("marcador").size()));
    for (std::string word; std::getline(words, word, ',');) {
        const std::string_view act = Trimmed(word);
        EXPECT_TRUE(act == "bien" || act == "mal" || act == "solución") << act;
        if (act == "solución") {
            counts.Scorable = false;
        } else {
            counts.Count(act == "bien");
        }
    }
    EXPECT_GT(counts.ExerciseCount, 0) << example.Place << " does not say what is pressed";
    return counts.Line();
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

// A quotient with the remainder below the last digit of the dividend; neither may be there.
Verdict quotientVerdict(
    const std::string& dividend, const std::string& divisor, const std::string& quotient, const std::string& remainder)
{
    bool commaShift = false;
    ScriptedRandom random { DrawOfDigits(std::stod(dividend), static_cast<int>(dividend.size())),
        DrawOfDigits(std::stod(divisor), static_cast<int>(divisor.size())) };
    DivisionExercise exercise(random, commaShift);
    exercise.DividendDigits = static_cast<int>(dividend.size());
    exercise.DividendDecimals = 0;
    exercise.DivisorDigits = static_cast<int>(divisor.size());
    exercise.GenerateDivision();
    if (!remainder.empty()) {
        exercise.Grid.WriteWorkingLine(remainder, static_cast<int>(dividend.size()), 1);
    }
    return exercise.Judge(quotient).value_or(Verdict {});
}

// "347 + 285 = 522: resultado incorrecto" or "25 ÷ 4 = 6, resto 1: resultado correcto", line by line: what is said of
// an answer. "nada" is an empty box.
std::string verdicts(const Example& example)
{
    static const std::regex line("(\\S+) (\\S+) (\\S+) = (\\S+?)(, (?:resto (\\S+)|papel en blanco))?: .*");
    Lines lines;
    for (const std::string& given : linesOf(example.Text)) {
        std::smatch parts;
        if (!std::regex_match(given, parts, line)) {
            ADD_FAILURE() << example.Place << " has no answer in " << given;
            continue;
        }
        const std::string first = parts[1];
        const std::string sign = parts[2];
        const std::string second = parts[3];
        const std::string answer = parts[4] == "nada" ? "" : parts[4].str();
        const Verdict verdict = sign == "÷" ? quotientVerdict(first, second, answer, parts[6])
            : sign == "×"
            ? productVerdict(first, second, answer)
            : columnVerdict(sign == "+" ? Operation::Addition : Operation::Subtraction, first, second, answer);
        lines.push_back(given.substr(0, given.rfind(": ")) + ": " + std::string(Trimmed(verdict.Text)));
    }
    return joined(lines);
}

// "97 + 0,4 = 97,4": the sum as it is on paper.
std::string onPaper(const Example& example)
{
    const std::string addends = example.Text.substr(0, example.Text.find(" = "));
    long long sum = 0;
    int decimals = 0;
    std::istringstream words(addends);
    for (std::string word; words >> word;) {
        decimals = std::max(decimals, decimalsOf(word));
    }
    words = std::istringstream(addends);
    for (std::string word; words >> word;) {
        sum += word == "+" ? 0 : unitsOf(word, decimals);
    }
    return addends + " = " + DecimalText(std::to_string(sum), decimals);
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
        { "en el cuaderno", onPaper },
    };
    return all;
}

TEST(ManualExamplesTest, EachWorkedExampleIsWhatTheProgramWorksOut)
{
    std::map<std::string, int> seen;
    for (const Page& page : Pages()) {
        for (const Example& example : page.Examples) {
            if (example.Kind == "text" && page.Name == "administracion.md") {
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

// In an example it would be worked out; in a sentence nobody sees that it is wrong. Texts of the program, and the table
// of times, which is worked out, may have such signs between digits.
TEST(ManualExamplesTest, NoCalculationStandsOutsideOfAnExample)
{
    static const std::regex calculation("[0-9] ?(\\+|×|÷|=|−) ?[0-9]|[0-9] (-|:|x|por|más|menos|entre) [0-9]");
    static const std::regex harmless("«[^»]*»|\\| [0-9]+ : [0-9]{2} \\|");
    for (const Page& page : Pages()) {
        const std::string prose = std::regex_replace(page.Prose, harmless, "");
        std::smatch found;
        EXPECT_FALSE(std::regex_search(prose, found, calculation)) << page.Name << " has " << found.str();
    }
}

// How often something is so, in so many exercises of a kind.
struct Share {
    int Cases = 0;
    int Of = 0;

    void Count(bool isSo)
    {
        Cases += isSo ? 1 : 0;
        ++Of;
    }
    double Value() const { return Of == 0 ? -1 : static_cast<double>(Cases) / Of; }
};

constexpr int exercises = 20000; // of each setting
constexpr int anySeed = 1;

// The shares of exercises of place and add that the page for teachers tells of.
struct Shares {
    Share Whole; // of all exercises, those whose sum has no decimals
    Share Refused; // of those, the ones whose sum is not taken for right
    Share Inexact; // of all, those whose solution is not the sum
};

void drawPlaceAndAdds(int addendCount, int maxDigits, const std::function<void(const PlaceAndAdd&)>& look)
{
    SeededRandom random(anySeed);
    PlaceAndAdd exercise(random);
    exercise.AddendCount = addendCount;
    exercise.MaxDigits = maxDigits;
    for (int count = 0; count < exercises; ++count) {
        exercise.NewPlaceAndAdd();
        look(exercise);
    }
}

Shares sharesOf(int addendCount, int maxDigits)
{
    constexpr int thousandths = 3;
    Shares shares;
    drawPlaceAndAdds(addendCount, maxDigits, [&shares](const PlaceAndAdd& exercise) {
        long long sum = 0;
        std::istringstream words(exercise.DataLine());
        for (std::string word; words >> word;) {
            sum += word == "+" ? 0 : unitsOf(word, thousandths);
        }
        const bool isWhole = sum % 1000 == 0;
        shares.Whole.Count(isWhole);
        if (isWhole) {
            shares.Refused.Count(!exercise.Judge(std::to_string(sum / 1000), {}).Right);
        }
        shares.Inexact.Count(unitsOf(std::string(Trimmed(exercise.Solution().Sum)), thousandths) != sum);
    });
    return shares;
}

TEST(ManualExamplesTest, PlaceAndAddHasAsFewWholeSumsAsThePageForTeachersSays)
{
    const Shares atFirst = sharesOf(4, 3);
    EXPECT_NEAR(1 / atFirst.Whole.Value(), 20, 3); // "una de cada veinte"
    EXPECT_NEAR(1 / atFirst.Refused.Value(), 10, 2); // "una de cada diez"
    EXPECT_NEAR(atFirst.Inexact.Value(), 0.035, 0.005); // "tres o cuatro de cada cien"
    const Shares most = sharesOf(2, 3);
    EXPECT_NEAR(1 / most.Whole.Value(), 10, 1); // "una de cada diez"
    EXPECT_EQ(most.Refused.Value(), 0); // "todas se reconocen"
}

// How often the columns of place and add have no room for the sum.
double shareWithoutRoom(int addendCount, int maxDigits)
{
    Share without;
    drawPlaceAndAdds(addendCount, maxDigits, [&without](const PlaceAndAdd& exercise) {
        bool hasRoom = true;
        try {
            exercise.Solution();
        } catch (const RunTimeError&) {
            hasRoom = false;
        }
        without.Count(!hasRoom);
    });
    return without.Value();
}

TEST(ManualExamplesTest, PlaceAndAddHasNoRoomForASumAsOftenAsThePageForTeachersSays)
{
    for (const int addends : { 2, 3, 4, 5, 6 }) {
        EXPECT_EQ(shareWithoutRoom(addends, 3), 0) << addends; // "con el máximo de cuatro o cinco cifras"
        EXPECT_GT(shareWithoutRoom(addends, 4), 0) << addends;
        EXPECT_LT(shareWithoutRoom(addends, 4), 0.05) << addends; // "muy pocas veces con cuatro"
    }
    EXPECT_NEAR(1 / shareWithoutRoom(4, 5), 6, 1); // "una de cada seis"
}

// How often the right sum or difference is not taken for right.
double shareRefused(Operation operation, int digits, int decimals)
{
    SeededRandom random(anySeed);
    ColumnExercise exercise(operation, random);
    exercise.Digits = digits;
    exercise.Decimals = decimals;
    const double unitsInOne = std::pow(10, decimals);
    Share refused;
    for (int count = 0; count < exercises; ++count) {
        exercise.Continue();
        const long long upper = std::llround(exercise.Operand1 * unitsInOne);
        const long long lower = std::llround(exercise.Operand2 * unitsInOne);
        const long long result = operation == Operation::Addition ? upper + lower : upper - lower;
        refused.Count(!exercise.Judge(DecimalText(std::to_string(result), decimals)).Right);
    }
    return refused.Value();
}

TEST(ManualExamplesTest, RightSumsAndDifferencesAreRefusedAsOftenAsThePageForTeachersSays)
{
    for (const int decimals : { 1, 4 }) {
        EXPECT_NEAR(1 / shareRefused(Operation::Addition, 6, decimals), 5, 1) << decimals; // "una de cada cinco"
        EXPECT_NEAR(shareRefused(Operation::Subtraction, 6, decimals), 0.06, 0.01) << decimals; // "seis de cada cien"
        EXPECT_NEAR(1 / shareRefused(Operation::Addition, 7, decimals), 4.5, 0.5) << decimals; // "cuatro o cinco"
        EXPECT_NEAR(shareRefused(Operation::Subtraction, 7, decimals), 0.6, 0.02) << decimals; // "seis de cada diez"
    }
    for (const Operation operation : { Operation::Addition, Operation::Subtraction }) {
        EXPECT_EQ(shareRefused(operation, 5, 2), 0); // "con cinco cifras o menos acierta siempre"
        EXPECT_EQ(shareRefused(operation, 5, 6), 0);
        EXPECT_EQ(shareRefused(operation, 7, 0), 0); // "sin decimales también"
    }
}

// How often the right product is not taken for right, by its size.
struct RefusedProducts {
    Share Below2000;
    Share Between;
    Share Above8000;
};

RefusedProducts refusedProducts(int digits1, int digits2, int decimals)
{
    SeededRandom random(anySeed);
    Multiplication exercise(random);
    exercise.Digits1 = digits1;
    exercise.Digits2 = digits2;
    exercise.Decimals1 = decimals;
    exercise.Decimals2 = decimals;
    RefusedProducts refused;
    for (int count = 0; count < exercises; ++count) {
        exercise.Continue();
        std::string answer = exercise.ShowSolution().Result;
        std::erase(answer, '.');
        Share& share = exercise.Product < 2000 ? refused.Below2000
            : exercise.Product > 8000          ? refused.Above8000
                                               : refused.Between;
        share.Count(!exercise.Judge(answer, {}).Right);
    }
    return refused;
}

TEST(ManualExamplesTest, RightProductsAreRefusedAsOftenAsThePageForTeachersSays)
{
    for (const int decimals : { 1, 2 }) {
        for (const auto& [digits1, digits2] : std::vector<std::pair<int, int>> { { 3, 2 }, { 3, 3 }, { 4, 2 } }) {
            const double share = refusedProducts(digits1, digits2, decimals).Above8000.Value();
            EXPECT_NEAR(1 / share, 3, 0.5) << digits1 << " by " << digits2; // "una de cada tres"
        }
        const RefusedProducts short2 = refusedProducts(2, 2, decimals);
        EXPECT_EQ(short2.Below2000.Value(), 0); // "por debajo de 2000 acierta siempre"
        EXPECT_GT(short2.Between.Value(), 0);
        EXPECT_LT(short2.Between.Value(), 0.005); // "falla muy pocas veces"
    }
    EXPECT_EQ(refusedProducts(5, 5, 0).Above8000.Value(), 0); // "sin decimales también"
}

} // namespace

} // namespace numbrela::testing
