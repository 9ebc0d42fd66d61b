#include "activities/multiply/screen/Dialog.h"

#include "common/screen/CommandButton.h"
#include "common/screen/Controls.h"
#include "common/screen/FormWindow.h"
#include "common/screen/Screens.h"

#include <QCheckBox>

namespace numbrela {

namespace {

constexpr TwipsSize areaSize { 2640, 2400 };
constexpr FontSpec tableFont { "Arial", 12 };
constexpr FontSpec buttonFont { "Arial", 9.75 };

} // namespace

Dialog::Dialog()
    : area_(new TwipsLayout(this, areaSize, tableFont))
{
    setObjectName(QStringLiteral("Dialog"));
    setWindowTitle(QStringLiteral("Tablas a usar"));
    FillScreenByF11(*this);
    for (int index = 0; index < static_cast<int>(Check1.size()); ++index) {
        const QString table = QString::number(index + 1);
        QCheckBox* box = AddControl(*area_, new QCheckBox(table, this), QStringLiteral("Check1(%1)").arg(index),
            { 120 + 700 * (index % 3), 120 + 475 * (index / 3), 600, 375 }, tableFont);
        box->setAccessibleName(QStringLiteral("Tabla del %1").arg(table));
        Check1[static_cast<std::size_t>(index)] = box;
    }
    OKButton = AddButton(
        *area_, QStringLiteral("OKButton"), QStringLiteral("&Aceptar"), { 120, 1785, 1140, 495 }, buttonFont);
    CancelButton = AddButton(
        *area_, QStringLiteral("CancelButton"), QStringLiteral("Cancelar"), { 1380, 1785, 1140, 495 }, buttonFont);
    connect(OKButton, &QPushButton::clicked, this, &Dialog::OKButton_Click);
    connect(CancelButton, &QPushButton::clicked, this, &Dialog::CancelButton_Click);
}

// The form is its parent while it is shown, which keeps it in front; but it must not be destroyed together with the
// form.
void Dialog::ShowModally(FormWindow& form)
{
    setParent(&form, windowFlags());
    setWindowState(Qt::WindowNoState); // it may have filled the screen when it was left
    resize(area_->SizeAt(form.Area().PixelsPerTwip()));
    Check1.front()->setFocus();
    exec();
    setParent(nullptr, windowFlags());
}

void Dialog::OKButton_Click()
{
    TablasSeleccionadas.clear();
    for (const QCheckBox* box : Check1) {
        if (box->isChecked()) {
            TablasSeleccionadas += box->text().toStdString();
        }
    }
    accept();
}

void Dialog::CancelButton_Click()
{
    reject();
}

} // namespace numbrela
