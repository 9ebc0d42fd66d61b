#pragma once

#include "activities/addsub/core/ColumnExercise.h"

#include <string_view>

namespace numbrela {

// Does with an answer what a window does: judges it, then counts it.
inline Verdict Check(ColumnExercise& exercise, std::string_view answer)
{
    Verdict verdict = exercise.Judge(answer);
    exercise.Score.Count(verdict.Right);
    return verdict;
}

} // namespace numbrela
