#pragma once

#include <memory>

class QAbstractNativeEventFilter;
class QApplication;

namespace numbrela {

// Gives the application its name and its look, and what goes for all windows: what assistive tools are told, held keys,
// fingers, and the screens that they stay on. Minimised windows that keep others inert are watched for as long as
// the returned filter lives; it is null where there is nothing to watch.
std::unique_ptr<QAbstractNativeEventFilter> StartUp(QApplication& application);

} // namespace numbrela
