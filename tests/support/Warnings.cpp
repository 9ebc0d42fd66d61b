#include "tests/support/Warnings.h"

#include "tests/support/Harness.h"

#include <QString>

#include <cstdio>
#include <cstdlib>

#if defined(SANITIZED)
#include <sanitizer/common_interface_defs.h>
#endif

namespace numbrela::testing {

namespace {

void abortOnNews(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message)
{
    if (IsNews(type, message)) {
        std::fprintf(stderr, "the toolkit warns: %s\n", qUtf8Printable(message));
#if defined(SANITIZED)
        __sanitizer_print_stack_trace();
#endif
        std::abort();
    }
}

} // namespace

void AbortOnWarnings()
{
    qInstallMessageHandler(abortOnNews);
}

} // namespace numbrela::testing
