#include "common/screen/InertWindows.h"

#include <QAbstractNativeEventFilter>

namespace numbrela {

// Inside a page no window can be minimised.
std::unique_ptr<QAbstractNativeEventFilter> WatchInertWindows()
{
    return nullptr;
}

} // namespace numbrela
