#pragma once

#include "activities/addsub/core/ColumnExercise.h"
#include "common/core/TimeOfDay.h"
#include "common/screen/ButtonRow.h"
#include "common/screen/FormWindow.h"
#include "common/screen/Keyboard.h"

#include <array>

class QLabel;

namespace numbrela {

class OptionMenu;
class TextBox;

// What differs between the two column windows.
struct ColumnFormDesign {
    Operation Kind;
    const char* Name;
    const char* Caption;
    int AreaHeight; // twips
    double OperandPoints;
    const char* Heading;
    bool HeadingReadOnly;
    const char* Sign;
    std::array<const char*, 2> OperandNames; // spoken by screen readers
    const char* Result;
    const char* InputTitle;
    const char* EnterOperand1;
    const char* EnterOperand2;
    const char* Exit;
};

// The window of column addition or subtraction: two operands under each other, an answer box that is filled from right
// to left, the button row, a verdict and the score. All arithmetic, judging and counting is the exercise's.
class ColumnForm : public FormWindow {
public:
    ColumnForm(const ColumnFormDesign& design, const Clock& clock);

    void Command1_Click();
    void Command2_Click(int index);
    void MnuOpcCifLis_Click(int index);
    void MnuOpcDeCLis_Click(int index);
    void MnuOpcIn1_Click();
    void MnuOpcIn2_Click();
    void MnuOpcSal_Click();
    KeyAnswer Text1_KeyPress();
    KeyAnswer Text2_KeyPress(int index);
    KeyAnswer Text3_KeyDown(int keyCode);
    void Text3_KeyUp(int keyCode);

    TextBox* Text1 = nullptr;
    std::array<TextBox*, 2> Text2 {};
    QLabel* Label1 = nullptr;
    TextBox* Text3 = nullptr;
    TextBox* Text4 = nullptr;
    TextBox* tbResultados = nullptr;
    ButtonRow Buttons;
    OptionMenu* MnuOpcCif = nullptr;
    OptionMenu* MnuOpcDec = nullptr;

private:
    void Form_Load();
    void buildControls();
    void buildMenus();
    void drawExercise();
    void showNewExercise(const OperandTexts& texts);
    void takeOperand(OperandEntry (ColumnExercise::*enter)(std::string_view));

    const ColumnFormDesign& design_;
    SeededRandom random_;
    ColumnExercise exercise_;
};

// "SUMAS": column addition.
class Form2 : public ColumnForm {
public:
    explicit Form2(const Clock& clock);
};

// "RESTAS": column subtraction.
class Form3 : public ColumnForm {
public:
    explicit Form3(const Clock& clock);
};

} // namespace numbrela
