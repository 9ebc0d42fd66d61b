#pragma once

#include "activities/multiply/core/Multiplication.h"
#include "common/core/TimeOfDay.h"
#include "common/screen/ButtonRow.h"
#include "common/screen/FormWindow.h"
#include "common/screen/Keyboard.h"

#include <array>
#include <memory>
#include <vector>

class QAction;
class QLabel;

namespace numbrela {

class Dialog;
class Line;
class OptionMenu;
class TextBox;

// "Multiplicaciones": two factors under each other, a box for each partial row, the result, the button row, a verdict
// and the score. Rows and result are written from right to left, and the digits of all of them stand in columns. All
// arithmetic, judging and counting is the exercise's.
class Form4 : public FormWindow {
public:
    // `tables` is the dialog that all windows share. It outlives them, and is made by the first one that opens it.
    Form4(const Clock& clock, std::unique_ptr<Dialog>& tables);

    void Form_Load();
    void Command1_Click();
    void Command2_Click(int index);
    void MnuOpcCi1Lis_Click(int index);
    void MnuOpcCi2Lis_Click(int index);
    void MnuOpcDe1Lis_Click(int index);
    void MnuOpcDe2Lis_Click(int index);
    void MnuOpcSelLis_Click(int index);
    void MnuOpcOcu_Click();
    void MnuOpcIn1_Click();
    void MnuOpcIn2_Click();
    void MnuOpcSal_Click();
    KeyAnswer TbFactor_KeyPress(int index);
    void TbParcial_Change(int index);
    KeyAnswer TbParcial_KeyDown(int index);
    void TbParcial_KeyUp(int index, int keyCode);
    KeyAnswer TbResultado_KeyDown(int keyCode);
    void TbResultado_KeyUp(int keyCode);

    TextBox* TbTítulo = nullptr;
    std::array<TextBox*, 2> TbFactor {};
    QLabel* LabX = nullptr;
    Line* Line1 = nullptr;
    std::vector<TextBox*> TbParcial;
    Line* Line2 = nullptr;
    QLabel* labIgual = nullptr;
    TextBox* TbResultado = nullptr;
    TextBox* Text1 = nullptr;
    TextBox* tbResultados = nullptr;
    ButtonRow Buttons;
    OptionMenu* MnuOpcCi1 = nullptr;
    OptionMenu* MnuOpcCi2 = nullptr;
    OptionMenu* MnuOpcDe1 = nullptr;
    OptionMenu* MnuOpcDe2 = nullptr;
    OptionMenu* MnuOpcSel = nullptr;
    QAction* MnuOpcOcu = nullptr;

private:
    void buildCalculation();
    void buildSideColumn();
    void buildMenus();
    TextBox* addColumnBox(const QString& name, const QString& spokenName, TwipsRect place);
    void loadRow();
    void unloadRow();
    void LayoutPartialRows();
    void placeUnderRows();
    void NewMultiplication();
    void showNewExercise();
    void showFactors();
    void checkOptions();
    std::string askForFactor(const std::string& title);
    void showTyped(const Multiplication::FactorEntry& entry);
    void clearAnswer();
    void showSolution();
    void alignColumns();
    std::vector<TextBox*> columnBoxes() const;

    SeededRandom random_;
    Multiplication exercise_;
    std::unique_ptr<Dialog>& tables_;
    int pressedIn_ = -1; // the row in which a key went down last, and the place that was to be written there
    QString placeAtPress_;
};

} // namespace numbrela
