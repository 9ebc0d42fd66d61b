#include "tests/support/Sanitizer.h"

#include <sanitizer/common_interface_defs.h>
#include <sanitizer/lsan_interface.h>

namespace numbrela::testing {

void PrintStack()
{
    __sanitizer_print_stack_trace();
}

UnreportedLeaks::UnreportedLeaks()
{
    __lsan_disable();
}

UnreportedLeaks::~UnreportedLeaks()
{
    __lsan_enable();
}

} // namespace numbrela::testing
