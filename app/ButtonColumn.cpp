#include "app/ButtonColumn.h"

#include "common/core/Arithmetic.h"

namespace numbrela {

ButtonColumn LayOutButtonColumn(Int16 formHeight, Int16 buttonCount)
{
    constexpr int margin = 500;
    const Int16 room = formHeight - 2 * margin;
    const Int16 unitCount = 2 * buttonCount + 1;
    const Int16 unit = static_cast<long long>(RoundHalfToEven(static_cast<double>(room) / unitCount));

    ButtonColumn column { .Left = 1000, .ButtonHeight = unit, .Tops = {} };
    for (int index = 0; index < buttonCount; ++index) {
        column.Tops.emplace_back(2 * index * unit + unit + margin);
    }
    return column;
}

} // namespace numbrela
