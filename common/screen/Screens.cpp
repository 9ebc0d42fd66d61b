#include "common/screen/Screens.h"

#include <QApplication>
#include <QScreen>
#include <QShortcut>
#include <QWidget>

#include <algorithm>

namespace numbrela {

namespace {

// A popup goes with the window that it belongs to, and the system looks after a window that fills the screen.
bool hasPlaceOfItsOwn(const QWidget& window)
{
    constexpr auto elsewhere = Qt::WindowMaximized | Qt::WindowFullScreen | Qt::WindowMinimized;
    return window.isVisible() && window.windowType() != Qt::Popup && !(window.windowState() & elsewhere);
}

} // namespace

void BringOntoScreen(QWidget& window)
{
    const QRect room = window.screen()->availableGeometry();
    const QSize around = window.frameGeometry().size() - window.size();
    window.resize(window.size().boundedTo(room.size() - around));
    const QRect frame = window.frameGeometry();
    const QPoint wanted(std::max(room.left(), std::min(frame.left(), room.right() + 1 - frame.width())),
        std::max(room.top(), std::min(frame.top(), room.bottom() + 1 - frame.height())));
    if (wanted != frame.topLeft()) {
        window.move(wanted);
    }
}

void KeepWindowsOnScreens(QApplication& application)
{
    const auto watch = [&application](const QScreen* screen) {
        QObject::connect(screen, &QScreen::availableGeometryChanged, &application, [] {
            for (QWidget* window : QApplication::topLevelWidgets()) {
                if (hasPlaceOfItsOwn(*window)) {
                    BringOntoScreen(*window);
                }
            }
        });
    };
    const QList<QScreen*> screens = QGuiApplication::screens();
    std::for_each(screens.begin(), screens.end(), watch);
    QObject::connect(&application, &QGuiApplication::screenAdded, &application, watch);
}

void FillScreenByF11(QWidget& window)
{
    QObject::connect(new QShortcut(Qt::Key_F11, &window), &QShortcut::activated, &window,
        [&window] { window.setWindowState(window.windowState() ^ Qt::WindowFullScreen); });
}

} // namespace numbrela
