#include "activities/addsub/core/ColumnExercise.h"
#include "activities/compare/core/Comparison.h"
#include "activities/divide/core/DivisionExercise.h"
#include "activities/multiply/core/Multiplication.h"
#include "activities/placeadd/core/PlaceAndAdd.h"
#include "activities/powers10/core/PowersOfTen.h"

#include <benchmark/benchmark.h>

// Prints how long the activities take to draw an exercise with the options that they begin with, and to work out its
// solution.

namespace numbrela {

namespace {

void DrawAndSolveSum(benchmark::State& state)
{
    SeededRandom random(1);
    ColumnExercise exercise(Operation::Addition, random);
    for (auto _ : state) {
        exercise.Generate();
        benchmark::DoNotOptimize(exercise.ShowSolution());
    }
}
BENCHMARK(DrawAndSolveSum);

void DrawAndSolveMultiplication(benchmark::State& state)
{
    SeededRandom random(1);
    Multiplication exercise(random);
    for (auto _ : state) {
        exercise.NewMultiplication();
        benchmark::DoNotOptimize(exercise.ShowSolution());
    }
}
BENCHMARK(DrawAndSolveMultiplication);

void DrawAndSolveDivision(benchmark::State& state)
{
    SeededRandom random(1);
    bool commaShift = false;
    DivisionExercise exercise(random, commaShift);
    for (auto _ : state) {
        exercise.GenerateDivision();
        benchmark::DoNotOptimize(exercise.ShowDivisionSolution());
    }
}
BENCHMARK(DrawAndSolveDivision);

void DrawComparison(benchmark::State& state)
{
    SeededRandom random(1);
    Comparison exercise(random);
    for (auto _ : state) {
        exercise.NewComparison();
        benchmark::DoNotOptimize(exercise.Captions);
    }
}
BENCHMARK(DrawComparison);

void DrawAndSolvePowerOfTen(benchmark::State& state)
{
    SeededRandom random(1);
    PowersOfTen exercise(random);
    for (auto _ : state) {
        exercise.NewPowerOfTenExercise();
        benchmark::DoNotOptimize(exercise.Solution());
    }
}
BENCHMARK(DrawAndSolvePowerOfTen);

void DrawAndSolvePlaceAndAdd(benchmark::State& state)
{
    SeededRandom random(1);
    PlaceAndAdd exercise(random);
    for (auto _ : state) {
        exercise.NewPlaceAndAdd();
        benchmark::DoNotOptimize(exercise.Solution());
    }
}
BENCHMARK(DrawAndSolvePlaceAndAdd);

} // namespace

} // namespace numbrela

BENCHMARK_MAIN();
