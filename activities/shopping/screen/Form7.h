#pragma once

#include "activities/shopping/core/ShoppingTask.h"
#include "common/core/TimeOfDay.h"
#include "common/screen/FormWindow.h"
#include "common/screen/Keyboard.h"

#include <array>
#include <filesystem>

class QFrame;
class QLabel;
class QTimer;

namespace numbrela {

class ColumnArea;
class CommandButton;
class Line;
class ListBox;
class TextArea;
class TextBox;

// "La compra": the shopping list with purse and clock on the left; beside it the shopping centre, a ring of ten shops,
// or the inside of the shop that the pupil has gone into. What happens to list, basket, money and time is the task's.
class Form7 : public FormWindow {
public:
    // Reads the catalogue file and begins a task. A catalogue that cannot be read counts as empty, and the pupil is
    // told why as soon as the window is on the screen. The clock outlives the window.
    Form7(const Clock& clock, std::filesystem::path catalogue);

    void Form_Load();
    void CBTienda_Click(int index);
    void LIDisponibles_DblClick();
    KeyAnswer LIDisponibles_KeyDown(const Key& key);
    void LICesta_DblClick();
    KeyAnswer LICesta_KeyDown(const Key& key);
    void CbContinuar_Click();
    void CBVolver_Click();
    KeyAnswer TbResultado_KeyDown(int keyCode);
    KeyAnswer TbResultado_KeyPress();
    void Timer1_Timer();
    void MnuOpcNum_Click();
    void MnuOpcAdd_Click();
    void MnuOpcPro_Click();
    void MnuOpcSal_Click();

    QFrame* Frame1;
    std::array<QLabel*, 3> Label1;
    ListBox* List1;
    TextBox* TBTiempo;
    TextBox* TBDinero;
    CommandButton* CBVolver;

    QFrame* Frame2;
    QLabel* Label2;
    std::array<CommandButton*, 10> CBTienda;

    QFrame* Frame3;
    QLabel* Label3;
    QLabel* LBDisponibles;
    ListBox* LIDisponibles;
    QLabel* LbCesta;
    ListBox* LICesta;
    TextArea* TbInstrucciones;
    ColumnArea* TBCantidades;
    Line* Line1;
    TextBox* TbResultado;
    CommandButton* CbContinuar;

    QTimer* Timer1;

    const ShoppingTask& Task() const { return task_; }

protected:
    void showEvent(QShowEvent* event) override;

private:
    void buildFrame1();
    void buildFrame2();
    void buildFrame3();
    void buildMenus();
    void loadCatalogue();
    void newShoppingTask();
    void showList();
    void showBasket(std::optional<int> selectedLine);
    void showShelves(bool shown);
    void showColumn(bool shown);
    void showInstructions(const std::string& text);
    void askForResult(const PayOutcome& outcome);
    void backToCentre();
    void leaveWithPurchase();
    void showMessageOnceVisible(const std::string& text);
    void showWaitingMessage();

    const Clock& clock_;
    const std::filesystem::path cataloguePath_;
    ShoppingTask task_;
    std::string waitingMessage_; // for the time when the window is on the screen
};

} // namespace numbrela
