#include "activities/addsub/core/ColumnExercise.h"
#include "activities/compare/core/Comparison.h"
#include "activities/divide/core/DivisionExercise.h"
#include "activities/multiply/core/Multiplication.h"
#include "activities/placeadd/core/PlaceAndAdd.h"
#include "activities/powers10/core/PowersOfTen.h"
#include "bench/Bench.h"
#include "common/core/NumberText.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstdlib>
#include <random>
#include <string>
#include <string_view>

// Prints how long the activities take to draw an exercise with the options that they begin with, and to work out its
// solution, beside drawing two numbers and writing their sum with the standard library; and to read numbers, beside the
// standard library's reader.

namespace numbrela::bench {

namespace {

void drawAndAddPlainly(benchmark::State& state)
{
    std::mt19937 random(1);
    std::uniform_int_distribution<int> threeDigits(100, 999);
    for (auto _ : state) {
        const std::array<int, 2> addends { threeDigits(random), threeDigits(random) };
        benchmark::DoNotOptimize(std::to_string(addends[0]));
        benchmark::DoNotOptimize(std::to_string(addends[1]));
        benchmark::DoNotOptimize(std::to_string(addends[0] + addends[1]));
    }
}

void drawAndSolveSum(benchmark::State& state)
{
    SeededRandom random(1);
    ColumnExercise exercise(Operation::Addition, random);
    for (auto _ : state) {
        exercise.Generate();
        benchmark::DoNotOptimize(exercise.ShowSolution());
    }
}

void drawAndSolveDifference(benchmark::State& state)
{
    SeededRandom random(1);
    ColumnExercise exercise(Operation::Subtraction, random);
    for (auto _ : state) {
        exercise.Generate();
        benchmark::DoNotOptimize(exercise.ShowSolution());
    }
}

void drawAndSolveMultiplication(benchmark::State& state)
{
    SeededRandom random(1);
    Multiplication exercise(random);
    for (auto _ : state) {
        exercise.NewMultiplication();
        benchmark::DoNotOptimize(exercise.ShowSolution());
    }
}

void drawAndSolveDivision(benchmark::State& state)
{
    SeededRandom random(1);
    bool commaShift = false;
    DivisionExercise exercise(random, commaShift);
    for (auto _ : state) {
        exercise.GenerateDivision();
        benchmark::DoNotOptimize(exercise.ShowDivisionSolution());
    }
}

void drawComparison(benchmark::State& state)
{
    SeededRandom random(1);
    Comparison exercise(random);
    for (auto _ : state) {
        exercise.NewComparison();
        benchmark::DoNotOptimize(exercise.Captions);
    }
}

void drawAndSolvePowerOfTen(benchmark::State& state)
{
    SeededRandom random(1);
    PowersOfTen exercise(random);
    for (auto _ : state) {
        exercise.NewPowerOfTenExercise();
        benchmark::DoNotOptimize(exercise.Solution());
    }
}

void drawAndSolvePlaceAndAdd(benchmark::State& state)
{
    SeededRandom random(1);
    PlaceAndAdd exercise(random);
    for (auto _ : state) {
        exercise.NewPlaceAndAdd();
        benchmark::DoNotOptimize(exercise.Solution());
    }
}

const std::array<std::string, 4> writtenNumbers { "7", "12,5", "-0,034", "123.456,78" };
const std::array<std::string, 4> plainNumbers { "7", "12.5", "-0.034", "123456.78" }; // the same

void readPlainly(benchmark::State& state)
{
    for (auto _ : state) {
        for (const std::string& text : plainNumbers) {
            benchmark::DoNotOptimize(std::strtod(text.c_str(), nullptr));
        }
    }
}

void readNumbers(benchmark::State& state)
{
    for (auto _ : state) {
        for (const std::string& text : writtenNumbers) {
            benchmark::DoNotOptimize(ParseDisplayNumber(text));
        }
    }
}

// Each run as a line of the table. A plain one comes first, and the others stand beside it.
class TableReporter : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context& /*machine*/) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs) {
            const double microseconds = run.GetAdjustedCPUTime();
            if (run.run_name.function_name.ends_with(plainEnd)) {
                plain_ = microseconds;
            } else {
                Print({ run.run_name.function_name.c_str(), "us", microseconds, plain_ });
            }
        }
    }

private:
    static constexpr std::string_view plainEnd = "plainly";
    double plain_ = 0;
};

void registerAll()
{
    const auto add = [](const char* name, void (*function)(benchmark::State&)) {
        auto* one = benchmark::RegisterBenchmark(name, function)->Unit(benchmark::kMicrosecond);
        if (chosenRounds > 0) {
            one->Iterations(chosenRounds);
        }
    };
    add("draw and add plainly", &drawAndAddPlainly);
    add("draw and solve Sumas", &drawAndSolveSum);
    add("draw and solve Restas", &drawAndSolveDifference);
    add("draw and solve Multiplicaciones", &drawAndSolveMultiplication);
    add("draw and solve Divisiones", &drawAndSolveDivision);
    add("draw Mayor y menor", &drawComparison);
    add("draw and solve Potencias de diez", &drawAndSolvePowerOfTen);
    add("draw and solve Colocar y sumar", &drawAndSolvePlaceAndAdd);
    add("read four numbers plainly", &readPlainly);
    add("read four numbers", &readNumbers);
}

} // namespace

} // namespace numbrela::bench

int main(int argc, char** argv)
{
    if (!numbrela::bench::TakeOptions(argc, argv)) {
        return 2;
    }
    numbrela::bench::registerAll();
    numbrela::bench::TableReporter table;
    benchmark::RunSpecifiedBenchmarks(&table);
    return numbrela::bench::ExitStatus();
}
