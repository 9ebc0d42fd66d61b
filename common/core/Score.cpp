#include "common/core/Score.h"

#include "common/core/NumberText.h"

namespace numbrela {

std::string Score::Count(bool right)
{
    Score counted = *this;
    if (Scorable) {
        ++counted.ExerciseCount;
        counted.ErrorCount += right ? 0 : 1;
        counted.Scorable = !right;
    }
    std::string line = counted.Line();
    *this = counted;
    return line;
}

std::string Score::Line() const
{
    constexpr int countWidth = 3;
    return "Ejercicios:" + PadLeft(std::to_string(ExerciseCount), countWidth)
        + "; Errores:" + PadLeft(std::to_string(ErrorCount), countWidth);
}

} // namespace numbrela
