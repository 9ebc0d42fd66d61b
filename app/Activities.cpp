#include "app/Activities.h"

#include "activities/addsub/screen/ColumnForm.h"
#include "activities/compare/screen/Form6.h"
#include "activities/divide/screen/Form5.h"
#include "activities/multiply/screen/Form4.h"
#include "activities/placeadd/screen/FormColoSuma.h"
#include "activities/powers10/screen/FrmUnidad.h"
#include "activities/shopping/screen/Form7.h"

#include <QApplication>

namespace numbrela {

namespace {

template <typename Form>
FormWindow* make(const Clock& clock)
{
    return new Form(clock);
}

// The folder "Recursos" stands beside the program.
std::filesystem::path cataloguePath()
{
    const std::filesystem::path programFolder = QCoreApplication::applicationDirPath().toStdU16String();
    return programFolder / "Recursos" / "productos.dat";
}

// The shopping window that a catalogue editor has left open beside the menu, or else a new one.
FormWindow* makeShopping(const Clock& clock)
{
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (auto* open = dynamic_cast<Form7*>(window); open != nullptr && open->isVisible()) {
            return open;
        }
    }
    return new Form7(clock, cataloguePath());
}

} // namespace

const std::array<MakeActivity, 8> activities {
    &make<Form2>,
    &make<Form3>,
    &make<Form4>,
    &make<Form5>,
    &make<Form6>,
    &make<FrmUnidad>,
    &make<FormColoSuma>,
    &makeShopping,
};

} // namespace numbrela
