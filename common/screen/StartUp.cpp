#include "common/screen/StartUp.h"

#include "common/screen/Accessible.h"
#include "common/screen/Fingers.h"
#include "common/screen/InertWindows.h"
#include "common/screen/Keyboard.h"
#include "common/screen/Look.h"
#include "common/screen/Screens.h"

#include <QAbstractNativeEventFilter>
#include <QApplication>

namespace numbrela {

std::unique_ptr<QAbstractNativeEventFilter> StartUp(QApplication& application)
{
    QApplication::setApplicationName(QStringLiteral("Numbrela"));
    ApplyLook(application);
    InstallAccessibility();
    RecogniseHeldKeys(application);
    RecogniseFingers(application);
    KeepWindowsOnScreens(application);
    return WatchInertWindows();
}

} // namespace numbrela
