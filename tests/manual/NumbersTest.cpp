#include "activities/divide/core/DivisionExercise.h"
#include "activities/shopping/core/Money.h"
#include "activities/shopping/core/ShoppingTask.h"
#include "common/core/NumberText.h"
#include "tests/manual/Pages.h"
#include "tests/support/ScriptedRandom.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>

namespace numbrela::testing {

namespace {

const std::string refused = "no lo acepta";

double valueOf(const std::string& text)
{
    const std::optional<double> value = ParseTypedNumber(text);
    EXPECT_TRUE(value.has_value()) << text;
    return value.value_or(0);
}

std::string dividendOf(const std::string& typed)
{
    bool commaShift = false;
    ScriptedRandom noChance({});
    DivisionExercise exercise(noChance, commaShift);
    return exercise.EnterDividend(typed) ? exercise.DividendText() : refused;
}

std::string divisorOf(const std::string& typed)
{
    bool commaShift = false;
    ScriptedRandom noChance({});
    DivisionExercise exercise(noChance, commaShift);
    return exercise.EnterDivisor(typed) ? exercise.DivisorText() : refused;
}

std::string listLengthOf(const std::string& typed)
{
    ShoppingTask task;
    return task.SetListLength(typed) ? std::to_string(static_cast<int>(task.ListLength)) : refused;
}

// What is in the second column of a table, by the title of its first: the program's reading of what is typed, or its
// writing of a number.
const std::map<std::string, std::function<std::string(const std::string&)>>& rules()
{
    static const std::map<std::string, std::function<std::string(const std::string&)>> all {
        { "En sumas y restas escribes", [](const auto& text) { return PlainDecimalText(ParseDisplayNumber(text)); } },
        { "En multiplicaciones, en el cociente y en 10, 100, 1000 escribes",
            [](const auto& text) { return PlainDecimalText(ParseCommaNumber(text)); } },
        { "En el papel de la división escribes",
            [](const auto& text) { return PlainDecimalText(LeadingWholeNumber(text)); } },
        { "En COLOCA Y SUMA escribes", [](const auto& text) { return PlainDecimalText(LeadingNumber(text)); } },
        { "En una pregunta del programa escribes",
            [](const auto& text) {
                const std::optional<double> number = ParseTypedNumber(text);
                return number ? PlainDecimalText(*number) : refused;
            } },
        { "Al introducir un dividendo escribes", dividendOf },
        { "Al introducir un divisor escribes", divisorOf },
        { "Al elegir el número de productos escribes", listLengthOf },
        { "En La compra, en la suma y en la vuelta, escribes",
            [](const auto& text) { return PlainDecimalText(ParsePrice(text).value_or(0.0F)); } },
        { "Al modificar un precio escribes",
            [](const auto& text) { return PlainDecimalText(LeadingPrice(text).value_or(-1)); } },
        { "El número, en sumas y restas", [](const auto& text) { return FormatDisplayNumber(valueOf(text)); } },
        { "El número, en las demás actividades", [](const auto& text) { return PlainDecimalText(valueOf(text)); } },
        { "El producto, en la solución", [](const auto& text) { return GroupThousands(text); } },
        { "El precio, en la columna",
            [](const auto& text) { return std::string(Trimmed(PriceText(static_cast<float>(valueOf(text))))); } },
        { "El dinero, al empezar", [](const auto& text) { return PurseText(static_cast<float>(valueOf(text))); } },
        { "El dinero, después de una compra",
            [](const auto& text) { return RemainderText(static_cast<float>(valueOf(text))); } },
        { "El total, en billetes",
            [](const auto& text) { return PlainDecimalText(NotesAbove(static_cast<float>(valueOf(text)))); } },
        { "El tiempo, en segundos", [](const auto& text) { return TimeText(std::stoi(text)); } },
    };
    return all;
}

// Numbers stand between backquotes, which keep their blanks; "nada" is an empty box.
std::string typed(const std::string& cell)
{
    if (cell == "nada") {
        return {};
    }
    const bool quoted = cell.size() > 1 && cell.front() == '`' && cell.back() == '`';
    return quoted ? cell.substr(1, cell.size() - 2) : cell;
}

TEST(ManualNumbersTest, EachExampleOfReadingAndWritingIsWhatTheProgramDoes)
{
    std::map<std::string, int> rows;
    for (const Page& page : Pages()) {
        for (const ManualTable& table : page.Tables) {
            const auto rule = rules().find(table.Rows.front().front());
            if (rule == rules().end()) {
                EXPECT_NE(page.Name, "numeros.md") << table.Place << " has an unknown title";
                continue;
            }
            for (std::size_t index = 1; index < table.Rows.size(); ++index) {
                const std::vector<std::string>& row = table.Rows[index];
                ++rows[rule->first];
                EXPECT_EQ(rule->second(typed(row.at(0))), typed(row.at(1))) << table.Place << ", " << row.at(0);
            }
        }
    }
    for (const auto& [title, rule] : rules()) {
        EXPECT_GE(rows[title], 2) << title;
    }
}

} // namespace

} // namespace numbrela::testing
