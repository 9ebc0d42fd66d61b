#include "app/Application.h"

#include "common/core/RunTimeError.h"
#include "common/screen/Boxes.h"
#include "common/screen/StartUp.h"

#include <QAbstractNativeEventFilter>
#include <QIcon>

namespace numbrela {

namespace {

// With its size named, a picture is read only when a window asks for it.
QIcon icon()
{
    QIcon icon;
    for (const int size : { WINDOW_ICON_SIZES }) {
        icon.addFile(QStringLiteral(":/icons/%1.png").arg(size), QSize(size, size));
    }
    return icon;
}

} // namespace

Application::Application(int& argc, char** argv)
    : QApplication(argc, argv)
{
    setDesktopFileName(QStringLiteral("numbrela")); // by which a desktop knows whose windows these are
    setWindowIcon(icon());
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
