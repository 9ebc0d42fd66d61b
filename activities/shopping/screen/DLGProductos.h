#pragma once

#include "activities/shopping/core/ProductEditor.h"
#include "common/core/TimeOfDay.h"
#include "common/screen/FormWindow.h"

#include <QTimer>

#include <array>
#include <filesystem>

class QLabel;

namespace numbrela {

class CommandButton;
class ListBox;
class TextBox;
struct Shop;

// "Productos": the window in which a teacher adds, changes and deletes the products of the catalogue. The editor
// (ProductEditor) keeps the table and changes it. When the window closes, the shopping window takes its place.
class DLGProductos : public FormWindow {
public:
    // Reads the catalogue of this shop and lists it. Clock and shop outlive the window. Throws what LoadCatalogue
    // throws.
    DLGProductos(const Clock& clock, Shop& shop);

    void Form_Load();
    void List1_Click();
    void CBAdd_Click();
    void CBModif_Click();
    void CBElim_Click();
    void OKButton_Click();
    void CancelButton_Click();

    std::filesystem::path& Ruta; // of the catalogue file: the shop's
    Int16 SelectedLine; // of the product that the boxes show

    QLabel* Label1 = nullptr;
    ListBox* List1 = nullptr;
    std::array<QLabel*, 3> LBDatos {};
    std::array<TextBox*, 3> TbDatos {}; // shop, name, price
    CommandButton* CBAdd = nullptr;
    CommandButton* CBModif = nullptr;
    CommandButton* CBElim = nullptr;
    CommandButton* OKButton = nullptr;
    CommandButton* CancelButton = nullptr;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void buildControls();
    void connectButton(CommandButton* button, void (DLGProductos::*click)());
    void FillProductList();
    void showProduct(int product, int line);
    ProductTexts boxTexts() const;
    void showChangedProduct(int product);
    void refusePrice();
    bool saveWithConsent();

    const Clock& clock_;
    Shop& shop_;
    ProductEditor editor_;
    QTimer refusal_; // fires as soon as the list has finished with the click that is refused
    bool accepted_ = false;
};

} // namespace numbrela
