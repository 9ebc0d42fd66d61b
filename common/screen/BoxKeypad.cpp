#include "common/screen/BoxKeypad.h"

#include "common/screen/KeypadSwitch.h"
#include "common/screen/Screens.h"

#include <QBoxLayout>
#include <QDialogButtonBox>
#include <QInputDialog>

namespace numbrela {

BoxKeypad::BoxKeypad(QInputDialog& box, const FormWindow& form)
    : OfferedKeypad(box, form, KeypadKeys::Numbers)
    , box_(box)
{
    static_cast<void>(box.sizeHint()); // a box makes its layout when somebody asks for its size
    box.findChild<QDialogButtonBox*>()->addButton(&Switch(), QDialogButtonBox::ResetRole); // at the left end
    follow();
}

void BoxKeypad::OnChoice(bool /*shown*/)
{
    follow();
    BringOntoScreen(box_);
}

void BoxKeypad::follow()
{
    if (IsChosen() && Pad() == nullptr) {
        Keypad& pad = MakePad();
        pad.TakeShape(0, KeySize());
        auto& layout = dynamic_cast<QBoxLayout&>(*box_.layout());
        layout.insertWidget(layout.count() - 1, &pad, 0, Qt::AlignHCenter); // above the buttons
    }
    SetShown(IsChosen());
}

} // namespace numbrela
