#include "app/Activities.h"

#include "activities/addsub/screen/ColumnForm.h"
#include "activities/divide/screen/Form5.h"

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
    &make<Form5>,
    nullptr, // greater and smaller
    nullptr, // powers of ten
    nullptr, // place and add
    nullptr, // shopping
};

} // namespace numbrela
