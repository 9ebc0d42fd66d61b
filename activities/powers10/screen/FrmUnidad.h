#pragma once

#include "activities/powers10/core/PowersOfTen.h"
#include "common/core/TimeOfDay.h"
#include "common/screen/ButtonRow.h"
#include "common/screen/FormWindow.h"
#include "common/screen/Keyboard.h"

#include <array>

namespace numbrela {

class OptionMenu;
class TextBox;

// "multiplicar y dividir por 10, 100, 1000": one line of arithmetic, "5,7 × 100 =" and the box for the answer, with the
// button row and a verdict under it. Drawing, arithmetic and judging are the exercise's.
class FrmUnidad : public FormWindow {
public:
    explicit FrmUnidad(const Clock& clock);

    void Form_Load();
    void Command1_Click();
    void Command2_Click(int index);
    KeyAnswer TBRespuesta_KeyPress(QChar character);
    void MnuOpcCi1Lis_Click(int index);
    void MnuOpcIn1_Click();
    void MnuOpcIn2_Click();
    void MnuOpcSal_Click();

    TextBox* TbInstruc = nullptr;
    std::array<TextBox*, 4> TBDatos {}; // number, sign, power of ten, equals sign
    TextBox* TBRespuesta = nullptr;
    TextBox* TBResultado = nullptr;
    ButtonRow Buttons;
    OptionMenu* MnuOpcCi1 = nullptr;
    OptionMenu* MnuOpcCi2 = nullptr;

private:
    void buildControls();
    void buildLineOfArithmetic();
    void buildMenus();
    void showNewExercise();

    SeededRandom random_;
    PowersOfTen exercise_;
};

} // namespace numbrela
