#include "app/Application.h"

#include "common/core/RunTimeError.h"
#include "common/screen/Boxes.h"
#include "common/screen/StartUp.h"

#include <QAbstractNativeEventFilter>

namespace numbrela {

Application::Application(int& argc, char** argv)
    : QApplication(argc, argv)
{
    inertWindows_ = StartUp(*this);
}

Application::~Application() = default;

bool Application::notify(QObject* receiver, QEvent* event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (const RunTimeError& error) {
        endBecauseOf(error);
        return true;
    }
}

void Application::endBecauseOf(const RunTimeError& error)
{
    if (ending_) {
        return; // the windows behind the message still get events; further errors no longer matter
    }
    ending_ = true;
    ShowMessage(
        activeWindow(), std::string(error.KindName()) + ".\n\n" + error.what() + "\n\nEl programa se va a cerrar.");
    exit(EXIT_FAILURE);
}

} // namespace numbrela
