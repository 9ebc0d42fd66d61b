#include "app/Activities.h"

#include "activities/addsub/screen/ColumnForm.h"
#include "activities/compare/screen/Form6.h"
#include "activities/divide/screen/Form5.h"
#include "activities/multiply/screen/Form4.h"
#include "activities/placeadd/screen/FormColoSuma.h"
#include "activities/powers10/screen/FrmUnidad.h"
#include "app/ProgramRun.h"

namespace numbrela {

namespace {

template <typename Form>
FormWindow* make(ProgramRun& run)
{
    return new Form(*run.Time);
}

FormWindow* makeMultiplication(ProgramRun& run)
{
    return new Form4(*run.Time, run.Tables);
}

FormWindow* makeDivision(ProgramRun& run)
{
    return new Form5(*run.Time, run.CommaShift);
}

FormWindow* openOrMakeShopping(ProgramRun& run)
{
    return OpenOrMakeShopping(*run.Time, run.Shopping);
}

} // namespace

const std::array<Activity, 8> activities { {
    { QStringLiteral("&Sumas"), &make<Form2> },
    { QStringLiteral("&Restas"), &make<Form3> },
    { QStringLiteral("&Multiplicaciones"), &makeMultiplication },
    { QStringLiteral("&Divisiones"), &makeDivision },
    { QStringLiteral("&Mayor y menor"), &make<Form6> },
    { QStringLiteral("&10, 100, 1000"), &make<FrmUnidad> },
    { QStringLiteral("&Coloca y suma"), &make<FormColoSuma> },
    { QStringLiteral("&La compra"), &openOrMakeShopping },
} };

} // namespace numbrela
