#include "app/Activities.h"

#include "activities/addsub/screen/ColumnForm.h"
#include "activities/multiply/screen/Form4.h"

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
    &make<Form4>, // multiplication
    nullptr, // division
    nullptr, // greater and smaller
    nullptr, // powers of ten
    nullptr, // place and add
    nullptr, // shopping
};

} // namespace numbrela
