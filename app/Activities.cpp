#include "app/Activities.h"

#include "activities/addsub/screen/ColumnForm.h"
#include "activities/compare/screen/Form6.h"
#include "activities/powers10/screen/FrmUnidad.h"

namespace numbrela {

namespace {

template <typename Form>
FormWindow* make(const Clock& clock)
{
    return new Form(clock);
}

} // namespace

const std::array<MakeActivity, 8> activities {
    &make<Form2>, &make<Form3>,
    nullptr, // multiplication
    nullptr, // division
    &make<Form6>, &make<FrmUnidad>,
    nullptr, // place and add
    nullptr, // shopping
};

} // namespace numbrela
