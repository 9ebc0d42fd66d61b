#pragma once

#include "activities/shopping/core/ShoppingTask.h"
#include "common/core/TimeOfDay.h"
#include "common/screen/FormWindow.h"
#include "common/screen/Keyboard.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

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
struct Shop;

// "La compra": the shopping list with purse and clock on the left; beside it the shopping centre, a ring of ten shops,
// or the inside of the shop that the pupil has gone into. The task decides what happens to list, basket, money and
// time.
class Form7 : public FormWindow {
public:
    // Reads the catalogue file and begins a task. A catalogue that cannot be read counts as empty, and a message says
    // why as soon as the window is on the screen. Clock and shop outlive the window.
    Form7(const Clock& clock, Shop& shop);

    void Form_Load();
    void CBTienda_Click(int index);
    void LIDisponibles_DblClick();
    KeyAnswer LIDisponibles_KeyDown(const Key& key);
    void LICesta_DblClick();
    KeyAnswer LICesta_KeyDown(const Key& key);
    void CbContinuar_Click();
    void CBVolver_Click();
    KeyAnswer TbResultado_KeyPress(QChar character);
    void Timer1_Timer();
    void MnuOpcNum_Click();
    void MnuOpcAdd_Click();
    void MnuOpcPro_Click();
    void MnuOpcSal_Click();

    QFrame* Frame1 = nullptr;
    std::array<QLabel*, 3> Label1 {};
    ListBox* List1 = nullptr;
    TextBox* TBTiempo = nullptr;
    TextBox* TBDinero = nullptr;
    CommandButton* CBVolver = nullptr;

    QFrame* Frame2 = nullptr;
    QLabel* Label2 = nullptr;
    std::array<CommandButton*, 10> CBTienda {};

    QFrame* Frame3 = nullptr;
    QLabel* Label3 = nullptr;
    QLabel* LBDisponibles = nullptr;
    ListBox* LIDisponibles = nullptr;
    QLabel* LbCesta = nullptr;
    ListBox* LICesta = nullptr;
    TextArea* TbInstrucciones = nullptr;
    ColumnArea* TBCantidades = nullptr;
    Line* Line1 = nullptr;
    TextBox* TbResultado = nullptr;
    CommandButton* CbContinuar = nullptr;

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
    void showChangedBasket(std::optional<int> changedLine);
    void showShelves(bool shown);
    void showColumn(bool shown);
    void showInstructions(const std::string& text);
    void askForResult(const PayOutcome& outcome);
    void backToCentre();
    void leaveWithPurchase();
    void showMessageOnceVisible(const std::string& text);
    void showWaitingMessage();

    const Clock& clock_;
    Shop& shop_;
    ShoppingTask task_;
    std::string waitingMessage_; // to be shown as soon as the window is on the screen
};

} // namespace numbrela
