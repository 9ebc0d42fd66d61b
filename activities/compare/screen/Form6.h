#pragma once

#include "activities/compare/core/Comparison.h"
#include "common/core/TimeOfDay.h"
#include "common/screen/FormWindow.h"

#include <array>

namespace numbrela {

class CommandButton;
class TextBox;

// "MAYOR Y MENOR": six buttons with six numbers, of which the greatest or the smallest is to be pressed. A wrong button
// vanishes; the right one brings the next question. What is right, and the counting, is the comparison's.
class Form6 : public FormWindow {
public:
    explicit Form6(const Clock& clock);

    void Form_Load();
    void CbNúmero_Click(int index);

    TextBox* Text1 = nullptr;
    std::array<CommandButton*, Comparison::ButtonCount> CbNúmero {};
    TextBox* Text3 = nullptr;
    TextBox* Text2 = nullptr;

private:
    void buildControls();
    void showNewComparison();
    void keepFocusOnANumber();

    SeededRandom random_;
    Comparison comparison_;
};

} // namespace numbrela
