#pragma once

#include "activities/divide/core/DivisionExercise.h"
#include "common/core/TimeOfDay.h"
#include "common/screen/ButtonRow.h"
#include "common/screen/FormWindow.h"
#include "common/screen/Keyboard.h"

namespace numbrela {

class Line;
class OptionMenu;
class StatementBox;
class TextBox;
class WorkingGridBox;

// "DIVISIONES": long division. The dividend stands on squared paper that takes the working, the divisor right of the
// bar, the quotient under it. The exercise does all arithmetic, judging and counting; what it cannot do is told in a
// message, and the pupil goes on.
class Form5 : public FormWindow {
public:
    // `commaShift` is shared by the grids of all windows (see WorkingGrid) and outlives the window.
    Form5(const Clock& clock, bool& commaShift);

    void Form_Load();
    void GenerateDivision();
    void Command1_Click();
    void Command2_Click(int index);
    void MnuOpcDivLis_Click(int index);
    void MnuOpcDeDLis_Click(int index);
    void MnuOpcDisLis_Click(int index);
    void MnuOpcDeCLis_Click(int index);
    void MnuOpcRes_Click();
    void MnuOpcInt_Click();
    void MnuOpcInd_Click();
    void MnuOpcSal_Click();
    void Form_KeyDown();
    KeyAnswer Text1_KeyDown(int keyCode);
    KeyAnswer Text1_KeyPress(QChar character);
    void Text2_GotFocus();
    void Text3_GotFocus();

    WorkingGridBox* Text1 = nullptr;
    TextBox* Text2 = nullptr;
    TextBox* Text3 = nullptr;
    StatementBox* Text4 = nullptr;
    TextBox* tbResultados = nullptr;
    Line* Line1 = nullptr;
    Line* Line2 = nullptr;
    ButtonRow Buttons;
    OptionMenu* MnuOpcDiv = nullptr;
    OptionMenu* MnuOpcDeD = nullptr;
    OptionMenu* MnuOpcDis = nullptr;
    OptionMenu* MnuOpcDeC = nullptr;
    QAction* MnuOpcRes = nullptr;

private:
    void buildBracket();
    void buildRest();
    void buildMenus();
    void checkOptions();
    void placeGrid();
    void showStatement();
    void showSolution();
    void showErrorsAsMessages(const std::function<void()>& action);

    SeededRandom random_;
    DivisionExercise exercise_;
};

} // namespace numbrela
