#pragma once

#include "activities/placeadd/core/PlaceAndAdd.h"
#include "common/core/TimeOfDay.h"
#include "common/screen/ButtonRow.h"
#include "common/screen/FormWindow.h"
#include "common/screen/Keyboard.h"

#include <vector>

class QLabel;

namespace numbrela {

class Line;
class OptionMenu;
class TextBox;

// "COLOCA Y SUMA": the addends in one line, a box for each of them under each other, and under a line the box for their
// sum. The boxes are full of blanks that typing replaces, so that every character keeps its column. Drawing, judging
// and the solution are the exercise's.
class FormColoSuma : public FormWindow {
public:
    explicit FormColoSuma(const Clock& clock);

    void Form_Load();
    void Command1_Click();
    void Command2_Click(int index);
    void MnuOpcSumLis_Click(int index);
    void MnuOpcCifLis_Click(int index);
    void MnuOpcSal_Click();
    KeyAnswer TbSumando_KeyDown(int index, int keyCode);
    KeyAnswer TbSumando_KeyPress(int index, QChar character);
    KeyAnswer TbResultado_KeyDown(int keyCode);
    KeyAnswer TbResultado_KeyPress(QChar character);

    TextBox* TBInstruc = nullptr;
    TextBox* TBDatos = nullptr;
    std::vector<TextBox*> TbSumando; // as many as the longest exercise so far has needed
    std::vector<QLabel*> LBSigno; // the sign of the next addend or, for the last one, of the sum
    Line* Line1 = nullptr;
    TextBox* TbResultado = nullptr;
    QWidget* Frame1 = nullptr;
    ButtonRow Buttons;
    TextBox* Text1 = nullptr;
    OptionMenu* MnuOpcSum = nullptr;
    OptionMenu* MnuOpcCif = nullptr;

private:
    void buildControls();
    void buildFrame();
    void buildMenus();
    void addRow();
    void showNewPlaceAndAdd();
    void placeBoxes();
    void placeSigns();
    void showSolution();

    SeededRandom random_;
    PlaceAndAdd exercise_;
};

} // namespace numbrela
