#include "tests/monkey/Ends.h"

#include <algorithm>
#include <array>
#include <regex>
#include <string_view>

namespace numbrela::testing {

namespace {

struct KnownEnd {
    std::string_view Window;
    std::string_view Kind;
    std::string_view Detail; // part of it
};

constexpr std::string_view overflow = "Desbordamiento";
constexpr std::string_view invalidArgument = "Argumento no válido";
constexpr std::string_view typeMismatch = "El tipo de dato no coincide";

// Where the program has no answer to an error and is meant to end. Everything else that ends it is a defect.
constexpr std::array<KnownEnd, 15> knownEnds { {
    // The score has three places for each count: the thousandth check of a visit.
    { "Form2", invalidArgument, "no cabe en 3 caracteres" },
    { "Form3", invalidArgument, "no cabe en 3 caracteres" },
    // Each of two typed operands fits a double, but not their sum or difference. The entry says so and keeps the
    // operand; checking or solving the exercise then ends the program.
    { "Form2", overflow, "La suma de los datos introducidos" },
    { "Form3", overflow, "La diferencia de los datos introducidos" },
    // An answer longer than any that is read.
    { "Form2", overflow, "El texto escrito tiene más de" },
    { "Form3", overflow, "El texto escrito tiene más de" },
    // Hits and errors are 16-bit counters.
    { "Form6", overflow, "no cabe en un contador de 16 bits" },
    // A typed factor is converted, and the result worked out, without a message of the window's own.
    { "FrmUnidad", typeMismatch, "no es un número que sirva de factor" },
    { "FrmUnidad", typeMismatch, "No se ha escrito ningún número" },
    { "FrmUnidad", overflow, "El número escrito es demasiado grande" },
    { "FrmUnidad", overflow, "El resultado de la operación es demasiado grande" },
    { "FrmUnidad", invalidArgument, "No se puede dividir entre 0" },
    // A price of 1000 and more has no room in the column, nor have more than 114 prices.
    { "Form7", invalidArgument, "no cabe en 6 caracteres" },
    { "Form7", overflow, "no caben en la columna" },
    // The catalogue file holds more products than can be counted.
    { "Form7", overflow, "» tiene más de 32767 productos." },
} };

constexpr std::string_view paragraph = "\n\n";
constexpr std::string_view farewell = "\n\nEl programa se va a cerrar.";

// A sentence without the text that it quotes, which somebody has typed and which may be very long.
std::string withoutQuotation(const std::string& sentence)
{
    constexpr std::string_view opening = "«";
    const std::size_t begin = sentence.find(opening);
    const std::size_t end = sentence.rfind("»");
    if (begin == std::string::npos || end == std::string::npos || end < begin) {
        return sentence;
    }
    return sentence.substr(0, begin + opening.size()) + "…" + sentence.substr(end);
}

} // namespace

std::string ProgramEnd::Cause() const
{
    static const std::regex number("-?[0-9][0-9.,]*");
    return Kind + ": " + std::regex_replace(Detail, number, "#");
}

bool ProgramEnd::IsByDesign() const
{
    return std::any_of(knownEnds.begin(), knownEnds.end(), [this](const KnownEnd& known) {
        return known.Window == Window && known.Kind == Kind && Detail.find(known.Detail) != std::string::npos;
    });
}

ProgramEnd EndToldIn(const std::string& boxText)
{
    const std::size_t kindEnd = boxText.find("." + std::string(paragraph));
    const std::size_t farewellBegin = boxText.rfind(farewell);
    if (kindEnd == std::string::npos || farewellBegin == std::string::npos) {
        return {};
    }
    const std::size_t detailBegin = kindEnd + 1 + paragraph.size();
    return { {}, boxText.substr(0, kindEnd),
        withoutQuotation(boxText.substr(detailBegin, farewellBegin - detailBegin)) };
}

} // namespace numbrela::testing
