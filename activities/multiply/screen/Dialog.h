#pragma once

#include <QDialog>

#include <array>
#include <string>

class QCheckBox;

namespace numbrela {

class CommandButton;
class FormWindow;
class TwipsLayout;

// "Tablas a usar": nine check boxes, one for each times table. It is only hidden between uses and so keeps its ticks
// and the last accepted choice. It does not know what the choice is used for.
class Dialog : public QDialog {
public:
    Dialog();

    // Shows the dialog over a form, at the scale of that form, and returns when it has been hidden again.
    void ShowModally(FormWindow& form);

    void OKButton_Click();
    void CancelButton_Click();

    // The ticked tables at the last "Aceptar", ascending: "237"; empty when none was ticked.
    std::string TablasSeleccionadas;

    std::array<QCheckBox*, 9> Check1 {};
    CommandButton* OKButton = nullptr;
    CommandButton* CancelButton = nullptr;

private:
    TwipsLayout* area_;
};

} // namespace numbrela
